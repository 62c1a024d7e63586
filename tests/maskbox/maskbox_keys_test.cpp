// MaskBox under real key events: typing through the mask, Backspace and Delete around literals,
// the clipboard keys, text that comes without keys, and leaving the box.
#include <tarnwell/maskbox.h>

#include "common/testsupport.h"

#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QLineEdit>
#include <QSignalSpy>

#include <random>

using Tarnwell::MaskBox;
using TestSupport::rowName;

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
        ASSERT_EQ(QApplication::focusWidget(), box); // the box holds the focus for Text1
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

template<typename Row>
class MaskBoxTable : public MaskBoxKeys, public ::testing::WithParamInterface<Row> {};

struct KeyRow {
    const char *name, *mask;
    int charCase;
    const char *value; // raw value before the keys
    int start, length; // selection before the keys
    std::string keys;
    const char *clipboard, *text; // text afterwards
    int caret, changes;
};
using MaskBoxTyping = MaskBoxTable<KeyRow>;

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

INSTANTIATE_TEST_SUITE_P(Keys, MaskBoxTyping, ::testing::Values(
    KeyRow{"PhoneNumber", Phone, 0, "", 0, 0, "5551234567", "", "(555) 123-4567", 14, 10},
    KeyRow{"FullFieldRefuses", "##/##", 0, "1234", 3, 0, "5", "", "12/34", 3, 0},
    KeyRow{"ProductUpper", "@@@-####", 1, "", 0, 0, "abc1234", "", "ABC-1234", 8, 7},
    KeyRow{"PostcodeLower", "@#? #@@", 2, "", 0, 0, "S1A1AA", "", "s1a 1aa", 7, 6},
    KeyRow{"BackspaceOverLiteral", "##/##", 0, "1234", 3, 0, "\b", "", "13/4 ", 1, 1},
    KeyRow{"DeleteTakesLiteralAndNext", "##/##", 0, "1234", 2, 0, "\x7f", "", "12/4 ", 2, 1},
    KeyRow{"CtrlVSwallowed", "##/##", 0, "", 0, 0, "\x16", "99", "  /  ", 0, 0},
    KeyRow{"CtrlXSwallowed", "##/##", 0, "1234", 0, 5, "\x18", "", "12/34", 5, 0},
    KeyRow{"NoMaskUpper", "", 1, "", 0, 0, "ab1", "", "AB1", 3, 3},
    KeyRow{"NoMaskLowerAccented", "", 2, "", 0, 0, "\xc9", "", "\xe9", 1, 1}), rowName);

TEST_F(MaskBoxKeys, CtrlCCopiesTheSelection)
{
    prepare("##/##", 0, "1234", 0, 5);
    press(text1, "\x03");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("12/34"));
}

// Text pasted past the mask (Shift+Insert) reads safely while it stands and is brought back to
// the mask on leaving, without a Change.
struct LeaveRow { const char *name, *mask; int charCase; const char *pasted, *valueWhilePasted, *textAfterLeaving; };
using MaskBoxLeaving = MaskBoxTable<LeaveRow>;

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

INSTANTIATE_TEST_SUITE_P(Keys, MaskBoxLeaving, ::testing::Values(
    LeaveRow{"LiteralsRestored", "##/##", 0, "12345", "1245", "12/45"},
    LeaveRow{"WrongClassClearsToBlank", "##/##", 0, "ab/cd", "abcd", "  /  "},
    LeaveRow{"CaseApplied", "@@/@@", 1, "ab/cd", "ABCD", "AB/CD"},
    LeaveRow{"NoMaskUntouched", "", 1, "ab c", "ab c", "ab c"}), rowName);

// Text that comes without keys: an input method's committed characters pass the host's keyPress
// (which here cancels '!' and turns '~' into '-') and CharCase like typed ones, through the mask
// when there is one; a program's insert on Text1 stays as it is. A Locked box takes neither.
enum class Via { InputMethod, Insert };
struct ArrivingRow {
    const char *name, *mask;
    int charCase;
    bool locked;
    const char *value; // before, the caret at `start`
    int start;
    Via via;
    const char *arriving, *text;
};
using ArrivingText = MaskBoxTable<ArrivingRow>;

TEST_P(ArrivingText, IsTypedUnlessLocked)
{
    const ArrivingRow &row = GetParam();
    QObject::connect(box, &MaskBox::keyPress, [](short &k) { k = k == '!' ? 0 : k == '~' ? '-' : k; });
    prepare(row.mask, row.charCase, row.value, row.start, 0);
    box->setLocked(row.locked);
    const QString arriving = QString::fromLatin1(row.arriving);
    if (row.via == Via::Insert) {
        text1->insert(arriving);
    } else {
        QInputMethodEvent commit;
        commit.setCommitString(arriving);
        QCoreApplication::sendEvent(text1, &commit);
    }
    EXPECT_EQ(box->Text(), QString::fromLatin1(row.text));
}

INSTANTIATE_TEST_SUITE_P(Keys, ArrivingText, ::testing::Values(
    ArrivingRow{"MaskedDigits", "##/##", 0, false, "", 0, Via::InputMethod, "1x2", "12/  "},
    ArrivingRow{"MaskedLowerCaseAndCancelled", "@@@", 2, false, "", 0, Via::InputMethod, "A!B", "ab "},
    ArrivingRow{"UpperCaseAndCancelled", "", 1, false, "q", 1, Via::InputMethod, "ab!c", "qABC"},
    ArrivingRow{"HostChangesACharacter", "", 0, false, "q", 1, Via::InputMethod, "a~b", "qa-b"},
    ArrivingRow{"ProgramInsertKept", "", 1, false, "q", 1, Via::Insert, "ab", "qab"},
    ArrivingRow{"LockedTakesNoInputMethodText", "", 0, true, "q", 1, Via::InputMethod, "ab", "q"},
    ArrivingRow{"LockedTakesNoProgramInsert", "", 0, true, "q", 1, Via::Insert, "ab", "q"},
    ArrivingRow{"LockedMaskedTakesNoInputMethodText", "##", 0, true, "1", 1, Via::InputMethod, "2", "1 "}),
    rowName);

// Whether `text` fits a mask described position by position, apart from the engine: 9 a digit,
// A a letter, X either, * anything (each of them may be blank), any other character itself.
bool fits(const QString &text, const QString &shape)
{
    if (text.size() != shape.size())
        return false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode(), s = shape[i].unicode();
        const bool digit = c >= '0' && c <= '9', letter = (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
        const bool ok = s == '9' ? digit || c == ' '
                      : s == 'A' ? letter || c == ' '
                      : s == 'X' ? digit || letter || c == ' '
                                 : s == '*' || c == s;
        if (!ok)
            return false;
    }
    return true;
}

// Whatever arrives by keys, pastes, input methods and setters, nothing crashes and leaving the
// box leaves either nothing or a text that fits the mask.
TEST_F(MaskBoxKeys, RandomInputEndsInsideTheMask)
{
    const std::pair<QString, QString> masks[] = {{"(###) ###-####", "(999) 999-9999"},
                                                 {"&&-??", "**-XX"},
                                                 {"@#\\&", "A9&"},
                                                 {"", ""}};
    const QStringList pastes{QStringLiteral("12a"), QStringLiteral("\t\x1e" "9"),
                             QString(300, QLatin1Char('7')), QStringLiteral("(\u20ac) \u00e9")};
    const int keys[] = {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left, Qt::Key_End,
                        Qt::Key_Return, Qt::Key_A};
    std::mt19937 random(7);
    auto pick = [&random](int n) { return int(random() % unsigned(n)); };
    for (int round = 0; round < 40; ++round) {
        text1->setFocus();
        const auto &[mask, shape] = masks[pick(4)];
        box->setMask(mask);
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
        if (!mask.isEmpty() && !text.isEmpty()) {
            EXPECT_TRUE(fits(text, shape)) << mask.toStdString() << " [" << text.toStdString() << "]";
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
