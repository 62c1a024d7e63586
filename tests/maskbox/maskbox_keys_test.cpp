// MaskBox under real key events: typing through the mask, Backspace and Delete around literals,
// the clipboard keys, the host's chance to change or cancel a key, and leaving the box.
#include <tarnwell/maskbox.h>

#include "common/widgetfixture.h"
#include "maskengine/maskengine.h"

#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QLineEdit>
#include <QSignalSpy>

#include <random>


using Tarnwell::MaskBox;

namespace {

// Keys as one string: '\b' Backspace, '\x7f' Delete, '\x01' Shift+Insert, other codes below 27
// Ctrl with their letter (3 Ctrl+C, 22 Ctrl+V); any other character is typed as it stands.
void press(QLineEdit *target, const std::string &keys)
{
    for (const char c : keys) {
        const QChar ch = QChar::fromLatin1(c);
        if (c == '\b')
            QTest::keyClick(target, Qt::Key_Backspace);
        else if (c == '\x7f')
            QTest::keyClick(target, Qt::Key_Delete);
        else if (c == '\x01')
            QTest::keyClick(target, Qt::Key_Insert, Qt::ShiftModifier);
        else if (c > 0 && c < 27)
            QTest::keyClick(target, Qt::Key(Qt::Key_A + c - 1), Qt::ControlModifier);
        else
            QTest::sendKeyEvent(QTest::Click, target, Qt::Key(ch.toUpper().unicode()), QString(ch),
                                Qt::NoModifier);
    }
}

class MaskBoxKeys : public WidgetFixture
{
protected:
    void SetUp() override
    {
        WidgetFixture::SetUp();
        box = new MaskBox(window.get());
        other = new QLineEdit(window.get());
        other->move(0, 60);
        showAndFocus(box);
        text1 = box->findChild<QLineEdit *>(QStringLiteral("Text1"));
        ASSERT_EQ(QApplication::focusWidget(), text1);
    }
    // The box holding `value` under `mask`, the caret at `start` with `length` selected.
    void prepare(const char *mask, int charCase, const char *value, int start, int length)
    {
        box->setMask(QString::fromLatin1(mask));
        box->setCharCase(Tarnwell::twCharCaseConstants(charCase));
        box->setValue(QString::fromLatin1(value));
        box->setSelStart(start);
        box->setSelLength(length);
    }

    MaskBox *box = nullptr;
    QLineEdit *other = nullptr;
    QLineEdit *text1 = nullptr;
};

struct KeyRow {
    const char *name, *mask;
    int charCase;
    const char *value; // raw value before the keys
    int start, length; // selection before the keys
    std::string keys;
    const char *clipboard, *text; // text afterwards
    int caret, changes;
};
void PrintTo(const KeyRow &row, std::ostream *os) { *os << row.name; }

class MaskBoxTyping : public MaskBoxKeys, public ::testing::WithParamInterface<KeyRow>
{
};

TEST_P(MaskBoxTyping, TextCaretAndChanges)
{
    const KeyRow &row = GetParam();
    prepare(row.mask, row.charCase, row.value, row.start, row.length);
    QGuiApplication::clipboard()->setText(QString::fromLatin1(row.clipboard));
    QSignalSpy changes(box, &MaskBox::Change);
    press(text1, row.keys);
    EXPECT_EQ(box->Text(), QString::fromLatin1(row.text));
    EXPECT_EQ(text1->cursorPosition(), row.caret);
    EXPECT_EQ(changes.count(), row.changes);
}

const char *Phone = "(###) ###-####";

INSTANTIATE_TEST_SUITE_P(
    Keys, MaskBoxTyping,
    ::testing::Values(
        KeyRow{"PhoneNumber", Phone, 0, "", 0, 0, "5551234567", "", "(555) 123-4567", 14, 10},
        KeyRow{"FullFieldRefuses", "##/##", 0, "1234", 3, 0, "5", "", "12/34", 3, 0},
        KeyRow{"ProductUpper", "@@@-####", 1, "", 0, 0, "abc1234", "", "ABC-1234", 8, 7},
        KeyRow{"PostcodeLower", "@#? #@@", 2, "", 0, 0, "S1A1AA", "", "s1a 1aa", 7, 6},
        KeyRow{"BackspaceOverLiteral", "##/##", 0, "1234", 3, 0, "\b", "", "13/4 ", 1, 1},
        KeyRow{"DeleteTakesLiteralAndNext", "##/##", 0, "1234", 2, 0, "\x7f", "", "12/4 ", 2, 1},
        KeyRow{"CtrlVSwallowed", "##/##", 0, "", 0, 0, "\x16", "99", "  /  ", 0, 0},
        KeyRow{"CtrlXSwallowed", "##/##", 0, "1234", 0, 5, "\x18", "", "12/34", 5, 0},
        KeyRow{"NoMaskUpper", "", 1, "", 0, 0, "ab1", "", "AB1", 3, 3},
        KeyRow{"NoMaskLowerAccented", "", 2, "", 0, 0, "\xc9", "", "\xe9", 1, 1}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(MaskBoxKeys, CtrlCCopiesTheSelection)
{
    prepare("##/##", 0, "1234", 0, 5);
    press(text1, "\x03");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("12/34"));
}

// The host's handlers run first: KeyDown may cancel Delete, keyPress may change or cancel a key.
TEST_F(MaskBoxKeys, HostHandlersRunFirst)
{
    prepare("##/##", 0, "1234", 2, 0);
    QObject::connect(box, &MaskBox::KeyDown,
                     [](short &code, short &) { code = code == 46 ? 0 : code; });
    QObject::connect(box, &MaskBox::keyPress,
                     [](short &k) { k = k == 'x' ? '7' : k == 8 ? 0 : k; });
    press(text1, "\x7f\b");
    EXPECT_EQ(box->Text(), QStringLiteral("12/34"));
    box->setValue(QString());
    press(text1, "x");
    EXPECT_EQ(box->Text(), QStringLiteral("7 /  "));
}

// Text pasted past the mask (Shift+Insert) reads safely while it stands and is brought back to
// the mask on leaving, without a Change.
struct LeaveRow {
    const char *name, *mask;
    int charCase;
    const char *pasted, *valueWhilePasted, *textAfterLeaving;
};
void PrintTo(const LeaveRow &row, std::ostream *os) { *os << row.name; }

class MaskBoxLeaving : public MaskBoxKeys, public ::testing::WithParamInterface<LeaveRow>
{
};

TEST_P(MaskBoxLeaving, NormalisesWithoutChange)
{
    const LeaveRow &row = GetParam();
    prepare(row.mask, row.charCase, "", 0, 0);
    box->setSelLength(int(box->Text().size()));
    QGuiApplication::clipboard()->setText(QString::fromUtf8(row.pasted));
    press(text1, "\x01");
    ASSERT_EQ(box->Text(), QString::fromUtf8(row.pasted));
    EXPECT_EQ(box->Value().toString(), QString::fromUtf8(row.valueWhilePasted));

    QSignalSpy changes(box, &MaskBox::Change);
    other->setFocus();
    QApplication::processEvents();
    EXPECT_EQ(box->Text(), QString::fromUtf8(row.textAfterLeaving));
    EXPECT_EQ(changes.count(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, MaskBoxLeaving,
    ::testing::Values(
        LeaveRow{"LiteralsRestored", "##/##", 0, "12345", "1245", "12/45"},
        LeaveRow{"WrongClassClearsToBlank", "##/##", 0, "ab/cd", "abcd", "  /  "},
        LeaveRow{"CaseApplied", "@@/@@", 1, "ab/cd", "ABCD", "AB/CD"},
        LeaveRow{"NoMaskUntouched", "", 1, "ab c", "ab c", "ab c"}),
    [](const auto &info) { return std::string(info.param.name); });

// Text that bypasses the keys: an input method's committed characters pass the host's keyPress
// and CharCase like typed ones (through the mask when there is one); a drop onto a box without
// the focus is brought back to the mask at once.
TEST_F(MaskBoxKeys, InputMethodCommitIsTyped)
{
    struct Row {
        const char *mask;
        int charCase;
        const char *committed, *text;
    };
    QObject::connect(box, &MaskBox::keyPress, [](short &k) { k = k == '!' ? 0 : k; });
    for (const Row &row : {Row{"##/##", 0, "1x2", "12/  "}, Row{"", 1, "ab!c", "ABC"},
                           Row{"@@@", 2, "A!B", "ab "}}) {
        prepare(row.mask, row.charCase, "", 0, 0);
        QInputMethodEvent commit;
        commit.setCommitString(QString::fromLatin1(row.committed));
        QCoreApplication::sendEvent(text1, &commit);
        EXPECT_EQ(box->Text(), QString::fromLatin1(row.text)) << row.committed;
    }
}

// Whatever arrives by keys, pastes, input methods and setters, nothing crashes and leaving the
// box leaves either nothing or a text that fits the mask.
TEST_F(MaskBoxKeys, RandomInputEndsInsideTheMask)
{
    const QStringList masks{QStringLiteral("(###) ###-####"), QStringLiteral("&&-??"),
                            QStringLiteral("@#\\&"), QString()};
    const QStringList pastes{QStringLiteral("12a"), QStringLiteral("\t\x1e" "9"),
                             QString(300, QLatin1Char('7')), QStringLiteral("(\u20ac) \u00e9")};
    const int keys[] = {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left, Qt::Key_End,
                        Qt::Key_Return, Qt::Key_A};
    std::mt19937 random(7);
    auto pick = [&random](int n) { return int(random() % unsigned(n)); };
    for (int round = 0; round < 40; ++round) {
        text1->setFocus();
        box->setMask(masks[pick(4)]);
        for (int step = 0; step < 25; ++step) {
            const QString paste = pastes[pick(4)];
            QInputMethodEvent commit;
            commit.setCommitString(paste);
            switch (pick(5)) {
            case 0: // a printable character, Latin-1 included
                QTest::sendKeyEvent(QTest::Click, text1, Qt::Key_A, QChar(char16_t(32 + pick(224))),
                                    Qt::NoModifier);
                break;
            case 1:
                QTest::keyClick(text1, Qt::Key(keys[pick(6)]),
                                pick(3) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
                break;
            case 2:
                QGuiApplication::clipboard()->setText(paste);
                QTest::keyClick(text1, Qt::Key_Insert, Qt::ShiftModifier);
                break;
            case 3:
                QCoreApplication::sendEvent(text1, &commit);
                break;
            default:
                box->setValue(paste);
                box->setSelStart(pick(20));
                box->setSelLength(pick(5));
                break;
            }
            (void)box->Value();
        }
        other->setFocus();
        QApplication::processEvents();
        const QString text = box->Text();
        // Every literal in place and every input character of its class.
        const Tarnwell::MaskEngine engine(box->Mask());
        if (!text.isEmpty()) {
            EXPECT_EQ(engine.FormatMaskValue(engine.ExtractMaskValue(text, 0)), text)
                << box->Mask().toStdString() << " " << text.toStdString();
        }
    }
}

TEST_F(MaskBoxKeys, DropWithoutFocusIsNormalised)
{
    prepare("##/##", 0, "", 0, 0);
    box->setOLEDropMode(2);
    other->setFocus();
    QApplication::processEvents();
    QMimeData data;
    data.setText(QStringLiteral("123"));
    // Qt delivers a drop only to the widget that took the drag's entry.
    QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(text1, &enter);
    QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(text1, &drop);
    QApplication::processEvents();
    EXPECT_EQ(box->Text(), QStringLiteral("12/  ")); // "123" went in before the blanks
}

} // namespace
