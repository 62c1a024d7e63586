// The change hook is handed the text as the control now shows it, however the text changed: typed,
// written by the control itself, or arriving in the text box without keys; for the date and time
// boxes, the text of their inner box.
#include "common/testsupport.h"

#include <tarnwell/clock.h>
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include <QLineEdit>

#include <functional>

using namespace Tarnwell;

namespace {

// What the hook was handed, next to what the control showed at that moment.
struct HookLog
{
    QStringList handed;
    QStringList shown;
};

template<typename Control>
class Logging : public Control, public HookLog
{
public:
    using Control::Control;

protected:
    void onTextChanged(const QString &text) override
    {
        handed << text;
        shown << this->shownText();
        Control::onTextChanged(text);
    }
};

struct HookRow
{
    const char *name;
    std::function<ControlFrame *(QWidget *)> make;
    const char *keys; // typed into the focused control, after `act`
    std::function<void(ControlFrame &, QLineEdit &text1)> act = nullptr;
};

void PrintTo(const HookRow &row, std::ostream *os) { *os << row.name; }

ControlFrame *phoneBox(QWidget *parent)
{
    auto *box = new Logging<MaskBox>(parent);
    box->setMask(QStringLiteral("(###) ###"));
    return box;
}

ControlFrame *priceBox(QWidget *parent) { return new Logging<NumberBox>(parent); }
ControlFrame *dateBox(QWidget *parent) { return new Logging<DateBox>(parent); }
ControlFrame *timeBox(QWidget *parent) { return new Logging<TimeBox>(parent); }

class TextChangedHook : public PinnedClockFixture, public ::testing::WithParamInterface<HookRow> {};

TEST_P(TextChangedHook, IsHandedTheTextAsShown)
{
    const HookRow &row = GetParam();
    ControlFrame *control = row.make(window.get());
    auto *log = dynamic_cast<HookLog *>(control);
    ASSERT_NE(log, nullptr);
    // The line controls' own text box, or the one inside the inner box.
    auto *text1 = control->findChild<QLineEdit *>(QStringLiteral("Text1"));
    ASSERT_NE(text1, nullptr);
    showAndFocus(control);
    *log = {};
    if (row.act)
        row.act(*control, *text1);
    QTest::keyClicks(QApplication::focusWidget(), QLatin1String(row.keys));

    ASSERT_FALSE(log->handed.isEmpty()) << "the hook never ran";
    EXPECT_EQ(log->handed, log->shown);
    EXPECT_EQ(log->handed.last(), text1->text());
}

INSTANTIATE_TEST_SUITE_P(Controls, TextChangedHook, ::testing::Values(
    HookRow{"MaskBoxTyped", phoneBox, "5551"},
    HookRow{"MaskBoxWrittenByItself", phoneBox, "",
            [](ControlFrame &c, QLineEdit &) {
                static_cast<MaskBox &>(c).setValue(QStringLiteral("555123"));
            }},
    HookRow{"MaskBoxTextArrivingWithoutKeys", phoneBox, "",
            [](ControlFrame &, QLineEdit &t) { t.setText(QStringLiteral("(12")); }},
    HookRow{"NumberBoxTyped", priceBox, "12.5"},
    HookRow{"DateBoxTyped", dateBox, "0703"},
    HookRow{"TimeBoxTyped", timeBox, "0930"}), ::TestSupport::rowName);

} // namespace
