// A date or time box carries its text in an inner MaskBox. One accepted key is one edit of the
// control: the control reports "Value" changed and raises Change once; the inner box raises
// Change for the control to hear but reports no Value of its own, and stays clean of it.
#include "common/testsupport.h"

#include <tarnwell/clock.h>
#include <tarnwell/date.h>
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/timebox.h>

#include <QLineEdit>
#include <QSignalSpy>

#include <functional>

using namespace Tarnwell;

namespace {

struct EditRow
{
    const char *name;
    std::function<ControlFrame *(QWidget *)> make;
    const char *inner; // the inner box's object name
    int caret;         // where the caret stands before the key
    int selected;      // characters selected from there
    Qt::Key key;
};

void PrintTo(const EditRow &row, std::ostream *os) { *os << row.name; }

ControlFrame *emptyDate(QWidget *parent) { return new DateBox(parent); }

ControlFrame *dateOf(QWidget *parent)
{
    auto *box = new DateBox(parent);
    box->setValue(QVariant::fromValue(Date::fromYmd(2024, 3, 7)));
    return box;
}

ControlFrame *emptyTime(QWidget *parent) { return new TimeBox(parent); }

ControlFrame *timeOf(QWidget *parent)
{
    auto *box = new TimeBox(parent);
    box->setValue(QVariant::fromValue(Date(0.5))); // noon
    return box;
}

ControlFrame *checkedTime(QWidget *parent)
{
    auto *box = new TimeBox(parent);
    box->setCheckBox(true);
    box->setChecked(true); // a new time box's check box starts cleared, its text out of sight
    return box;
}

// How often `spy` (on PropertyChanged) heard "Value".
int valueReports(const QSignalSpy &spy)
{
    int count = 0;
    for (const QList<QVariant> &args : spy)
        count += args.at(0).toString() == QLatin1String("Value");
    return count;
}

class OneReportPerEdit : public PinnedClockFixture, public ::testing::WithParamInterface<EditRow> {};

TEST_P(OneReportPerEdit, ControlReportsAndInnerBoxDoesNot)
{
    const EditRow &row = GetParam();
    ControlFrame *control = row.make(window.get());
    auto *inner = control->findChild<MaskBox *>(QLatin1String(row.inner));
    ASSERT_NE(inner, nullptr);
    auto *text1 = inner->findChild<QLineEdit *>(QStringLiteral("Text1"));
    ASSERT_NE(text1, nullptr);
    showAndFocus(control);
    text1->setSelection(row.caret, row.selected);
    control->clearDirty();
    inner->clearDirty();
    const QString before = text1->text();

    QSignalSpy outerReports(control, &ControlFrame::PropertyChanged);
    QSignalSpy outerChanges(control, &ControlFrame::Change);
    QSignalSpy innerReports(inner, &ControlFrame::PropertyChanged);
    QSignalSpy innerChanges(inner, &ControlFrame::Change);
    QTest::keyClick(QApplication::focusWidget(), row.key);

    ASSERT_NE(text1->text(), before) << "the key was not taken";
    EXPECT_EQ(valueReports(outerReports), 1);
    EXPECT_EQ(outerChanges.count(), 1);
    EXPECT_TRUE(control->isDirty(QStringLiteral("Value")));
    EXPECT_EQ(valueReports(innerReports), 0);
    EXPECT_EQ(innerChanges.count(), 1); // what the control listens to
    EXPECT_FALSE(inner->dirtyProperties().contains(QStringLiteral("Value")));
}

INSTANTIATE_TEST_SUITE_P(Controls, OneReportPerEdit, ::testing::Values(
    EditRow{"DateBoxFirstDigit", emptyDate, "mdtDate", 0, 0, Qt::Key_1},
    EditRow{"DateBoxDigitOverAValue", dateOf, "mdtDate", 9, 1, Qt::Key_5},
    EditRow{"DateBoxBackspaceInAValue", dateOf, "mdtDate", 2, 0, Qt::Key_Backspace},
    EditRow{"TimeBoxFirstDigit", emptyTime, "mdtTime", 0, 0, Qt::Key_1},
    EditRow{"TimeBoxDigitOverAValue", timeOf, "mdtTime", 3, 1, Qt::Key_3},
    EditRow{"TimeBoxBackspaceInAValue", timeOf, "mdtTime", 2, 0, Qt::Key_Backspace},
    EditRow{"TimeBoxWithCheckBoxTicked", checkedTime, "mdtTime", 0, 0, Qt::Key_1}), ::TestSupport::rowName);

} // namespace
