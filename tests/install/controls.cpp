// The four controls, their common frame and the value controls' base, set up and read back as a
// form would, with events connected by member-function pointer and properties written by name.
#include "consumer.h"

#include <tarnwell/constants.h>
#include <tarnwell/date.h>
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/timebox.h>
#include <tarnwell/valuebox.h>
#include <tarnwell/variant.h>

#include <QApplication>
#include <QPixmap>

using namespace Tarnwell;

namespace Consumer {
namespace {

// The frame's common properties, hooks and events, on any control.
void useFrame(ControlFrame &box)
{
    // Connected for the length of this function only: the counters are its locals.
    int reported = 0;
    const QMetaObject::Connection connections[] = {
        QObject::connect(&box, &ControlFrame::PropertyChanged, &box, [&](const QString &) { ++reported; }),
        QObject::connect(&box, &ControlFrame::Change, &box, [] {}),
        QObject::connect(&box, &ControlFrame::keyPress, &box, [](short &) {}, Qt::DirectConnection),
        QObject::connect(&box, &ControlFrame::MouseDown, &box, [](short &, short &, float &, float &) {},
                         Qt::DirectConnection),
    };
    box.setBackColor(OleColor::fromRgb(1, 2, 3));
    box.setForeColor(OleColor::WindowText);
    box.setDisabledColor(OleColor::GrayText);
    box.setFont(QApplication::font());
    box.setBorderStyle(twFixedSingle);
    box.setAlignment(twCenter);
    box.setLocked(false);
    box.setSelectTextOnFocus(true);
    box.setNullIfEmpty(true);
    box.setEnterAsTab(true);
    box.setToolTip(QStringLiteral("tip"));
    box.setCheckBox(false);
    box.setMouseIcon(QPixmap());
    box.setMousePointer(ControlFrame::MousePointerDefault);
    box.setOLEDragMode(ControlFrame::OLEDragManual);
    box.setOLEDropMode(ControlFrame::OLEDropNone);
    box.setEnabled(true);
    check(box.BackColor().value() == 0x030201u && box.ForeColor().isSystem() && box.DisabledColor().isSystem()
              && box.BorderStyle() == twFixedSingle && box.Alignment() == twCenter && !box.Locked()
              && box.SelectTextOnFocus() && box.NullIfEmpty() && box.EnterAsTab()
              && box.ToolTip() == QStringLiteral("tip") && !box.CheckBox() && box.MouseIcon().isNull()
              && box.MousePointer() == 0 && box.OLEDragMode() == 0 && box.OLEDropMode() == 0 && box.Enabled()
              && box.Font() == QApplication::font(),
          "ControlFrame: common properties");
    box.setCheckBox(true);
    box.setChecked(true);
    check(box.Checked(), "ControlFrame: check box");
    box.setCheckBox(false);
    box.setSelStart(0);
    box.setSelLength(0);
    check(box.SelStart() == 0 && box.SelLength() == 0 && box.SelText().isEmpty(), "ControlFrame: selection");
    checkError(380, "ControlFrame: negative SelStart", [] { MaskBox().setSelStart(-1); });
    box.setCanPropertyChangeHook([](const QString &) { return true; });
    check(box.canPropertyChange(QStringLiteral("Value")) && box.UserMode(), "ControlFrame: host site");
    check(box.isDirty(QStringLiteral("BackColor")) && !box.dirtyProperties().isEmpty() && reported > 0,
          "ControlFrame: reported changes");
    box.clearDirty();
    box.setUserMode(true);
    box.Refresh();
    check(!box.controlHasFocus() && !box.checkHasFocus() && !box.isUpdating(), "ControlFrame: flags");
    check(box.sizeHint().isValid() && box.minimumSizeHint().isValid(), "ControlFrame: size hints");
    for (const QMetaObject::Connection &c : connections)
        QObject::disconnect(c);
}

// Persists a control and reads it back into a new one of the same kind, which stores the same
// keys again.
template<typename Box>
void roundTrip(Box &box, const char *what)
{
    PropertyBag bag;
    box.WriteProperties(bag);
    Box copy;
    copy.ReadProperties(bag);
    PropertyBag again;
    copy.WriteProperties(again);
    check(!bag.keys().isEmpty() && bag.keys() == again.keys(), what);
    copy.InitProperties();
}

void useMaskBox(QWidget *form)
{
    auto *box = new MaskBox(form);
    useFrame(*box);
    box->setMask(QStringLiteral("(###) ###-####"));
    box->setCharCase(twUpperCase);
    box->setPromptInclude(false);
    box->setValue(QStringLiteral("5551234567"));
    check(box->Text() == QStringLiteral("(555) 123-4567") && box->Mask() == QStringLiteral("(###) ###-####")
              && box->CharCase() == twUpperCase && !box->PromptInclude() && box->Value().isValid(),
          "MaskBox: mask and value");
    check(!MaskBox::helpString("Mask").isEmpty(), "MaskBox: help strings");
    roundTrip(*box, "MaskBox: property bag");
}

void useNumberBox(QWidget *form)
{
    auto *box = new NumberBox(form);
    useFrame(*box);
    box->setDataType(twDecimal);
    box->setMinimum(QVariant::fromValue(Decimal::fromInt64(-100)));
    box->setMaximum(QVariant::fromValue(Decimal::fromInt64(100)));
    box->setIncrement(QVariant::fromValue(Decimal::parse(QStringLiteral("0.5"))));
    box->setDecimalPlaces(2);
    box->setThousandSeparator(true);
    box->setCurrencySymbol(QStringLiteral("$"));
    box->setShowCurrencySymbol(twLeft);
    box->setUpDown(true);
    box->setInterceptArrowKeys(true);
    box->setNegativeColor(NumberBox::DefaultNegativeColor);
    box->setNegativeDisabledColor(NumberBox::DefaultNegativeDisabledColor);
    box->setUseNegativeColor(true);
    box->setValue(QVariant::fromValue(Decimal::parse(QStringLiteral("12.5"))));
    check(box->Value().value<Decimal>() == Decimal::parse(QStringLiteral("12.5")) && box->DataType() == twDecimal
              && box->Minimum().isValid() && box->Maximum().isValid() && box->Increment().isValid()
              && box->DecimalPlaces() == 2 && box->MaxDecimalPlaces() >= 2 && box->ThousandSeparator()
              && box->CurrencySymbol() == QStringLiteral("$") && box->ShowCurrencySymbol() == twLeft
              && box->UpDown() && box->InterceptArrowKeys() && box->NegativeColor().value() == 192
              && box->NegativeDisabledColor().value() == 0x8080FF && box->UseNegativeColor()
              && !box->Text().isEmpty(),
          "NumberBox: settings and value");
    // The stepping every value control shares.
    ValueBox &stepping = *box;
    check(stepping.stepEnabled() == (ValueBox::StepUpEnabled | ValueBox::StepDownEnabled), "ValueBox: both steps");
    stepping.stepUp();
    check(box->Value().value<Decimal>() == Decimal::fromInt64(13), "ValueBox: step up by the increment");
    stepping.stepDown();
    check(box->Value().value<Decimal>() == Decimal::parse(QStringLiteral("12.5")), "ValueBox: step down");
    checkError(382, "NumberBox: MaxDecimalPlaces is read-only at run time", [] { NumberBox().setMaxDecimalPlaces(4); });
    checkError(380, "NumberBox: currency position out of range",
               [] { NumberBox().setShowCurrencySymbol(twCurrencyPositionConstants(3)); });
    roundTrip(*box, "NumberBox: property bag");
}

void useDateBox(QWidget *form)
{
    auto *box = new DateBox(form);
    useFrame(*box);
    bool droppedDown = false;
    QObject::connect(box, &DateBox::DropDown, box, [&] { droppedDown = true; });
    box->setFormat(twYearMonthDay);
    box->setSeparator(QStringLiteral("-"));
    box->setDisplayFormat(QStringLiteral("yyyy-mm-dd"));
    box->setUpDown(true); // with a day in the format, the calendar's button
    box->setInterceptArrowKeys(true);
    box->setCalendarBackColor(OleColor::WindowBackground);
    box->setCalendarForeColor(OleColor::WindowText);
    box->setCalendarTitleBackColor(OleColor::ButtonFace);
    box->setCalendarTitleForeColor(OleColor::ButtonText);
    box->setCalendarTrailingForeColor(OleColor::GrayText);
    box->setCalendarFont(QApplication::font());
    // Qt's date types reach the bounds by name; a bound before the calendar is dropped.
    check(box->setProperty("Minimum", QDate(2000, 1, 1)) && box->setProperty("Maximum", QDate(2030, 12, 31)),
          "DateBox: bounds by name");
    box->clearDirty();
    check(box->setProperty("Minimum", QDate(1600, 6, 1)) && box->Minimum() == Date::fromYmd(2000, 1, 1)
              && box->isDirty(QStringLiteral("Minimum")),
          "DateBox: a bound the calendar refuses is dropped and reported");
    box->setValue(QDate(2024, 3, 7));
    check(box->Value().value<Date>() == Date::fromYmd(2024, 3, 7) && box->Format() == twYearMonthDay
              && box->Separator() == QStringLiteral("-") && box->DisplayFormat() == QStringLiteral("yyyy-mm-dd")
              && box->UpDown() && box->InterceptArrowKeys() && box->Maximum() == Date::fromYmd(2030, 12, 31)
              && box->CalendarBackColor().isSystem() && box->CalendarForeColor().isSystem()
              && box->CalendarTitleBackColor().isSystem() && box->CalendarTitleForeColor().isSystem()
              && box->CalendarTrailingForeColor().isSystem() && box->CalendarFont() == QApplication::font()
              && box->Text() == QStringLiteral("2024-03-07"),
          "DateBox: settings and value");
    box->setValue(QDate(1600, 12, 31));
    check(Variant::isNull(box->Value()), "DateBox: a date before the range leaves no value");
    checkError(382, "DateBox: Text is read-only", [] { DateBox().setText(QString()); });
    // The calendar opens through replayed keys: they arrive with the events.
    box->show();
    QApplication::processEvents();
    box->ShowDropDown();
    for (int i = 0; i < 50 && !droppedDown; ++i)
        QApplication::processEvents();
    check(droppedDown, "DateBox: drop-down");
    roundTrip(*box, "DateBox: property bag");
}

void useTimeBox(QWidget *form)
{
    auto *box = new TimeBox(form);
    useFrame(*box);
    box->setFormat(twHourMinute);
    box->setSeparator(QStringLiteral("."));
    box->setUpDown(true);
    box->setInterceptArrowKeys(true);
    check(box->setProperty("Minimum", QTime(8, 0)) && box->setProperty("Maximum", QTime(18, 0)),
          "TimeBox: bounds by name");
    box->setValue(QTime(9, 30));
    check(box->Value().value<Date>() == Date::fromHms(9, 30, 0) && box->Format() == twHourMinute
              && box->Separator() == QStringLiteral(".") && box->UpDown() && box->InterceptArrowKeys()
              && box->Minimum() == Date::fromHms(8, 0, 0) && box->Maximum() == Date::fromHms(18, 0, 0)
              && !box->Text().isEmpty() && TimeBox::DayEndSerial < 1.0,
          "TimeBox: settings and value");
    checkError(382, "TimeBox: Text is read-only", [] { TimeBox().setText(QString()); });
    roundTrip(*box, "TimeBox: property bag");
}

} // namespace

void useControls(QWidget *form)
{
    form->show();
    form->activateWindow();
    QApplication::processEvents();
    useMaskBox(form);
    useNumberBox(form);
    useDateBox(form);
    useTimeBox(form);
    QApplication::processEvents();
}

} // namespace Consumer
