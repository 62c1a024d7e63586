// Synthesised keystrokes: the exact press/release sequence, and that the events really arrive
// at the focus widget with the right key, modifiers and text.
#include "shared/keysender.h"

#include "common/testsupport.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace Tarnwell {
// Readable strokes in failure output.
void PrintTo(const KeySender::Stroke &s, std::ostream *os)
{
    *os << "(" << s.vk << (s.down ? " down " : " up ") << s.flags << ")";
}
} // namespace Tarnwell

using Tarnwell::KeySender;
using Stroke = KeySender::Stroke;

namespace {

class Recording
{
public:
    Recording() { KeySender::setObserver([this](const Stroke &s) { strokes.push_back(s); }); }
    ~Recording()
    {
        KeySender::setObserver(nullptr);
        QCoreApplication::processEvents(); // drop what was posted to nobody in particular
    }
    std::vector<Stroke> strokes;
};

struct CharRow { const char *name; QString ch; bool skipRelease, skipPress; std::vector<Stroke> expected; };
class CharKeys : public ::testing::TestWithParam<CharRow> {};

TEST_P(CharKeys, PressesAndReleasesInOrder)
{
    Recording rec;
    KeySender::sendCharKeys(GetParam().ch, GetParam().skipRelease, GetParam().skipPress);
    EXPECT_EQ(rec.strokes, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Sequences, CharKeys, ::testing::Values(
    CharRow{"LowerA", "a", false, false, {{65, true, 0}, {65, false, 2}}},
    CharRow{"UpperAShiftAround", "A", false, false,
            {{16, true, 0}, {65, true, 1}, {65, false, 3}, {16, false, 2}}},
    CharRow{"ExclamationIsShift1", "!", false, false,
            {{16, true, 0}, {49, true, 1}, {49, false, 3}, {16, false, 2}}},
    CharRow{"Tab", "\t", false, false, {{9, true, 0}, {9, false, 2}}},
    CharRow{"CtrlC", QString(QChar(3)), false, false,
            {{17, true, 0}, {67, true, 1}, {67, false, 3}, {17, false, 2}}},
    // Modifiers go down Shift, Ctrl, Alt and come up in that same order, after the key.
    CharRow{"CtrlShift6", QString(QChar(0x1E)), false, false,
            {{16, true, 0}, {17, true, 0}, {54, true, 1}, {54, false, 3}, {16, false, 2}, {17, false, 2}}},
    CharRow{"OnlyFirstCharacter", "xy", false, false, {{88, true, 0}, {88, false, 2}}},
    CharRow{"PressOnly", "A", true, false, {{16, true, 0}, {65, true, 1}}},
    CharRow{"ReleaseOnly", QString(QChar(0x1F)), false, true,
            {{189, false, 3}, {16, false, 2}, {17, false, 2}}},
    CharRow{"NoKeyForCharacter", QString(QChar(0xE9)), false, false, {}},
    CharRow{"EmptyString", "", false, false, {}}), TestSupport::rowName);

struct VkRow { const char *name; int vk; bool skipRelease, skipPress, notExtended; std::vector<Stroke> expected; };
class VirtualKeys : public ::testing::TestWithParam<VkRow> {};

TEST_P(VirtualKeys, ExtendedUnlessItTypesOrIsToldNot)
{
    Recording rec;
    const VkRow &r = GetParam();
    KeySender::sendVirtualKey(r.vk, r.skipRelease, r.skipPress, r.notExtended);
    EXPECT_EQ(rec.strokes, r.expected);
}

INSTANTIATE_TEST_SUITE_P(Sequences, VirtualKeys, ::testing::Values(
    VkRow{"F4Extended", 115, false, false, false, {{115, true, 1}, {115, false, 3}}},
    VkRow{"F4NotExtended", 115, false, false, true, {{115, true, 0}, {115, false, 2}}},
    VkRow{"LetterNeverExtended", 65, false, false, false, {{65, true, 0}, {65, false, 2}}},
    VkRow{"DownPressOnly", 40, true, false, false, {{40, true, 1}}},
    VkRow{"OutOfRange", 300, false, false, false, {}}), TestSupport::rowName);

// Records every key event that reaches a widget.
class KeyLog : public QObject
{
public:
    struct Entry { QEvent::Type type; int key; Qt::KeyboardModifiers modifiers; QString text; };
    bool eventFilter(QObject *, QEvent *e) override
    {
        if (e->type() == QEvent::KeyPress || e->type() == QEvent::KeyRelease) {
            auto *k = static_cast<QKeyEvent *>(e);
            entries.push_back({e->type(), k->key(), k->modifiers(), k->text()});
        }
        return false;
    }
    std::vector<Entry> entries;
};
class KeySenderDelivery : public WidgetFixture {};

TEST_F(KeySenderDelivery, UpperCaseLetterArrivesWithShiftAndIsTyped)
{
    auto *edit = new QLineEdit(window.get());
    showAndFocus(edit);
    KeyLog log;
    edit->installEventFilter(&log);
    KeySender::sendCharKeys("A", false, false);
    QCoreApplication::processEvents();
    ASSERT_EQ(log.entries.size(), 4u);
    EXPECT_EQ(log.entries[0].key, Qt::Key_Shift);
    EXPECT_EQ(log.entries[1].key, Qt::Key_A);
    EXPECT_EQ(log.entries[1].modifiers, Qt::ShiftModifier);
    EXPECT_EQ(log.entries[1].text, "A");
    EXPECT_EQ(log.entries[2].type, QEvent::KeyRelease);
    EXPECT_EQ(log.entries[3].modifiers, Qt::NoModifier) << "Shift is up after its release";
    EXPECT_EQ(edit->text(), "A");
}

} // namespace
