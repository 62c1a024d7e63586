#include <tarnwell/error.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/variant.h>

#include "numberengine/numberdisplay.h"
#include "numberengine/numbereditor.h"
#include "numberengine/numbertype.h"
#include "numberengine/textworkspace.h"
#include "platform/keyboard.h"
#include "shared/contextmenuhook.h"
#include "shared/settingsreader.h"
#include "shared/updownbutton.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QScopedValueRollback>

#include <cstdlib>

namespace Tarnwell {

namespace {

const QString kDataType = QStringLiteral("DataType");
const QString kMinimum = QStringLiteral("Minimum");
const QString kMaximum = QStringLiteral("Maximum");
const QString kValue = QStringLiteral("Value");
const QString kIncrement = QStringLiteral("Increment");
const QString kDecimalPlaces = QStringLiteral("DecimalPlaces");
const QString kThousandSeparator = QStringLiteral("ThousandSeparator");
const QString kCurrencySymbol = QStringLiteral("CurrencySymbol");
const QString kShowCurrencySymbol = QStringLiteral("ShowCurrencySymbol");
const QString kUpDown = QStringLiteral("UpDown");
const QString kInterceptArrowKeys = QStringLiteral("InterceptArrowKeys");
const QString kNegativeColor = QStringLiteral("NegativeColor");
const QString kNegativeDisabledColor = QStringLiteral("NegativeDisabledColor");
const QString kUseNegativeColor = QStringLiteral("UseNegativeColor");

const QString kInternational = QStringLiteral("Control Panel\\International");
const QString kWindowMetrics = QStringLiteral("Control Panel\\Desktop\\WindowMetrics");

QString userSetting(const QString &subKey, const QString &name)
{
    return SettingsReader::GetRegValue(SettingsReader::HKeyCurrentUser, subKey, name).toString();
}

QVariant bagNumber(const QVariant &v)
{
    if (!Variant::isNumeric(v))
        throw Error(Error::InvalidPropertyValue);
    return v;
}

// The most decimals a formatter pattern is given from a bag (the Decimal type's scale).
constexpr int MaxStoredDecimalPlaces = 28;

} // namespace

NumberBox::NumberBox(QWidget *parent)
    : ControlFrame(parent),
      m_display(std::make_unique<NumberDisplay>(QLocale())),
      m_editor(std::make_unique<NumberEditor>(*m_display)),
      m_text2(std::make_unique<TextWorkspace>())
{
    Variant::registerTypes();

    // The filler behind Text1: what shows when a cleared check box hides the number.
    m_text3 = new QLineEdit(this);
    m_text3->setObjectName(QStringLiteral("Text3"));
    m_text3->setFrame(false);
    m_text3->setReadOnly(true);
    m_text3->setFocusPolicy(Qt::NoFocus);
    m_text3->setContextMenuPolicy(Qt::NoContextMenu);
    m_text3->setAcceptDrops(false);
    m_text3->lower();

    m_upDown1 = new UpDownButton(this);
    m_upDown1->setObjectName(QStringLiteral("UpDown1"));
    m_upDown1->hide();
    connect(m_upDown1, &UpDownButton::Change, this, [this] {
        try {
            upDownChanged();
        } catch (...) {
            // A host's Change handler must not unwind through the button.
        }
    });

    // The line edit's own menu would offer undo, cut and paste past the number editor.
    ContextMenuHook::InstallWindowHook(Text1());
    InitProperties();
    clearDirty();
}

NumberBox::~NumberBox()
{
    ContextMenuHook::RemoveWindowHook(Text1());
    disconnect(m_upDown1, nullptr, this, nullptr);
}

// ---------------------------------------------------------------------------------------------
// Conversions

QVariant NumberBox::convert(const QVariant &value) const
{
    return NumberType::ConvertToType(value, m_dataType, m_display->locale());
}

bool NumberBox::inRange(const QVariant &value, bool useMinMax) const
{
    return NumberType::IsInRange(value, useMinMax, m_dataType, m_minimum, m_maximum,
                                 m_display->locale());
}

void NumberBox::validateNumber(const QVariant &value) const
{
    if (!Variant::isNumeric(value, m_display->locale()))
        throw Error(Error::TypeMismatch);
    if (!inRange(value, false))
        throw Error(Error::Overflow);
}

// ---------------------------------------------------------------------------------------------
// Value and range

QVariant NumberBox::Value() const
{
    if (!CheckBox() || Checked())
        return convert(m_value);
    return NullIfEmpty() ? Variant::null() : QVariant();
}

void NumberBox::setValue(const QVariant &value)
{
    const bool null = Variant::isNull(value);
    QVariant number = null ? QVariant() : value;
    if (number.typeId() == QMetaType::QString && number.toString().isEmpty())
        number = QVariant();
    // Checked before the check box moves, so that a refused value changes nothing.
    validateNumber(number);

    if (null) {
        if (CheckBox())
            Check1()->setChecked(false);
        enableUpDown();
    } else if (UserMode() && CheckBox()) {
        Check1()->setChecked(true);
    }
    if (!inRange(number, true))
        return;
    if (!CanPropertyChange(kValue))
        return;
    m_value = convert(number);
    markDirty(kValue);
    ShowValue();
}

void NumberBox::setMinimum(const QVariant &minimum)
{
    validateNumber(minimum);
    const QVariant converted = convert(minimum);
    const std::optional<int> order = NumberType::compare(converted, convert(m_maximum), m_dataType);
    if (!order || *order > 0)
        return;
    m_minimum = converted;
    markDirty(kMinimum);
    const std::optional<int> below = NumberType::compare(convert(m_value), m_minimum, m_dataType);
    if (below && *below < 0)
        setValue(m_minimum);
}

void NumberBox::setMaximum(const QVariant &maximum)
{
    validateNumber(maximum);
    const QVariant converted = convert(maximum);
    const std::optional<int> order = NumberType::compare(converted, convert(m_minimum), m_dataType);
    if (!order || *order < 0)
        return;
    m_maximum = converted;
    markDirty(kMaximum);
    const std::optional<int> above = NumberType::compare(convert(m_value), m_maximum, m_dataType);
    if (above && *above > 0)
        setValue(m_maximum);
}

void NumberBox::setIncrement(const QVariant &increment)
{
    validateNumber(increment);
    m_increment = convert(increment);
    markDirty(kIncrement);
}

void NumberBox::setDataType(int dataType)
{
    m_dataType = dataType;
    markDirty(kDataType);
    m_minimum = NumberType::TypeLowerLimit(dataType);
    m_maximum = NumberType::TypeUpperLimit(dataType);
    m_increment = QVariant::fromValue<qint16>(1);
    m_value = QVariant::fromValue<qint16>(0);
    m_display->setDecimalPlaces(MaxDecimalPlaces());
    ShowValue();
}

// ---------------------------------------------------------------------------------------------
// Display properties

qint16 NumberBox::DecimalPlaces() const
{
    return m_display->DecimalPlaces();
}

void NumberBox::setDecimalPlaces(qint16 places)
{
    if (places < 0 || places > MaxDecimalPlaces())
        return;
    m_display->setDecimalPlaces(places);
    markDirty(kDecimalPlaces);
    ShowValue();
}

qint16 NumberBox::MaxDecimalPlaces() const
{
    // Only the setting the type depends on is read.
    QString digits;
    QString currencyDigits;
    if (m_dataType == twSingle || m_dataType == twDouble)
        digits = userSetting(kInternational, QStringLiteral("iDigits"));
    else if (m_dataType == twCurrency || m_dataType == twDecimal)
        currencyDigits = userSetting(kInternational, QStringLiteral("iCurrDigits"));
    return NumberType::RegionalDecimalPlaces(m_dataType, digits, currencyDigits);
}

void NumberBox::setMaxDecimalPlaces(qint16)
{
    refuseSet();
}

bool NumberBox::ThousandSeparator() const
{
    return m_display->ThousandSeparator();
}

void NumberBox::setThousandSeparator(bool on)
{
    m_display->setThousandSeparator(on);
    markDirty(kThousandSeparator);
    ShowValue();
}

QString NumberBox::CurrencySymbol() const
{
    return m_display->CurrencySymbol();
}

void NumberBox::setCurrencySymbol(const QString &symbol)
{
    m_display->setCurrencySymbol(symbol);
    markDirty(kCurrencySymbol);
    ShowValue();
}

twCurrencyPositionConstants NumberBox::ShowCurrencySymbol() const
{
    return static_cast<twCurrencyPositionConstants>(m_display->ShowCurrencySymbol());
}

void NumberBox::setShowCurrencySymbol(twCurrencyPositionConstants position)
{
    const int p = int(position);
    if (p < twNoCurrency || p > twRight)
        throw Error(Error::InvalidPropertyValue);
    m_display->setShowCurrencySymbol(p);
    markDirty(kShowCurrencySymbol);
    ShowValue();
}

void NumberBox::setUpDown(bool on)
{
    m_upDown = on;
    relayout();
    markDirty(kUpDown);
    setInterceptArrowKeys(on);
}

void NumberBox::setInterceptArrowKeys(bool on)
{
    m_interceptArrowKeys = on;
    markDirty(kInterceptArrowKeys);
}

void NumberBox::setNegativeColor(OleColor color)
{
    m_negativeColor = color;
    applyTextColor();
    markDirty(kNegativeColor);
}

void NumberBox::setNegativeDisabledColor(OleColor color)
{
    m_negativeDisabledColor = color;
    applyTextColor();
    markDirty(kNegativeDisabledColor);
}

void NumberBox::setUseNegativeColor(bool on)
{
    m_useNegativeColor = on;
    applyTextColor();
    markDirty(kUseNegativeColor);
}

void NumberBox::setToolTip(const QString &text)
{
    ControlFrame::setToolTip(text);
    m_upDown1->setToolTip(text);
}

QString NumberBox::Text() const
{
    return Text1()->text();
}

void NumberBox::setText(const QString &)
{
    refuseSet();
}

void NumberBox::setSelText(const QString &text)
{
    NumberEditState state = editState();
    state.locked = false; // Locked keeps the user out, not the host's code
    apply(text.isEmpty() ? m_editor->insertText(state, QString()) : m_editor->paste(state, text));
}

// ---------------------------------------------------------------------------------------------
// Showing the number

void NumberBox::writeText1(const QString &text, int selStart, int selLength)
{
    QLineEdit *text1 = Text1();
    if (text1->text() != text) {
        m_shownText = text;
        text1->setText(text);
    }
    const int length = int(text.size());
    const int start = qBound(0, selStart, length);
    if (selLength > 0)
        text1->setSelection(start, qMin(selLength, length - start));
    else
        text1->setCursorPosition(start);
}

void NumberBox::ShowValue()
{
    m_text2->setText(m_display->formatNumber(m_value, m_dataType));
    m_display->AddCurrencySymbol(*m_text2);
    // As the host's text box does when its text is set, the caret goes to the front.
    writeText1(m_text2->Text(), 0, 0);
    refreshTextColor();
}

void NumberBox::apply(const NumberEditResult &result)
{
    if (result.valueChanged)
        m_value = result.value;
    if (result.textChanged || result.caretChanged)
        writeText1(result.text, result.selStart, result.selLength);
    refreshTextColor();
}

NumberEditState NumberBox::editState() const
{
    NumberEditState state;
    state.text = Text1()->text();
    state.selStart = SelStart();
    state.selLength = SelLength();
    state.locked = Locked();
    state.value = m_value;
    state.dataType = m_dataType;
    state.minimum = m_minimum;
    state.maximum = m_maximum;
    state.increment = m_increment;
    return state;
}

void NumberBox::onTextChanged()
{
    const QString now = Text1()->text();
    if (now != m_shownText) {
        normaliseForeignText(now);
        return;
    }
    markDirty(kValue);
    if (!Updating()) {
        refreshTextColor();
        emit Change();
    }
}

void NumberBox::normaliseForeignText(const QString &text)
{
    if (m_normalising)
        return;
    QScopedValueRollback<bool> guard(m_normalising, true);
    const QVariant value = m_editor->valueOfText(text, m_dataType);
    if (value.isValid()) {
        m_value = value;
        const QString shown = m_editor->showValue(value, m_dataType);
        writeText1(shown, int(shown.size()), 0);
    } else {
        // Back to what was shown; nothing changed, so no Change either.
        UpdatingGuard updating(*this);
        const QString shown = m_shownText;
        m_shownText.clear(); // forces the rewrite
        writeText1(shown, int(shown.size()), 0);
    }
    refreshTextColor();
}

// ---------------------------------------------------------------------------------------------
// Colours and layout

void NumberBox::applyTextColor()
{
    const NumberDisplay::ColorRole role =
        NumberDisplay::colorRole(Enabled(), m_useNegativeColor, m_value);
    OleColor color = ForeColor();
    switch (role) {
    case NumberDisplay::NegativeColorRole: color = m_negativeColor; break;
    case NumberDisplay::DisabledColorRole: color = DisabledColor(); break;
    case NumberDisplay::NegativeDisabledColorRole: color = m_negativeDisabledColor; break;
    case NumberDisplay::ForeColorRole: break;
    }
    const QColor text = resolveColor(color);
    const QColor base = resolveColor(BackColor());
    paintWidget(Text1(), text, base);
    paintWidget(m_text3, text, base);
    m_appliedColorRole = role;
}

void NumberBox::refreshTextColor()
{
    // Repainting the palette on every keystroke would cost a palette copy; only a new role does.
    if (NumberDisplay::colorRole(Enabled(), m_useNegativeColor, m_value) != m_appliedColorRole)
        applyTextColor();
}

int NumberBox::upDownWidthTwips()
{
    bool ok = false;
    const qlonglong width = userSetting(kWindowMetrics, QStringLiteral("ScrollWidth")).toLongLong(&ok);
    return ok ? int(qMin<qlonglong>(std::llabs(width), 1000000)) : 0;
}

void NumberBox::relayout()
{
    ControlFrame::relayout();
    if (!m_text3 || !m_upDown1)
        return;
    const int upDownWidth = upDownWidthTwips();
    const twBorderStyleConstants style = BorderStyle();
    const int allowance = borderAllowanceX(style);
    const int innerWidth = innerWidthTwips();
    const int innerHeight = innerHeightTwips();
    const int left = CheckBox() ? 255 : 15;
    placeTwips(Text1(), left, 15,
               innerWidth - left - (m_upDown ? upDownWidth + allowance : allowance),
               innerHeight - borderAllowanceY(style));
    const int fillerWidth = style == twNone ? innerWidth - upDownWidth + 30
                                            : innerWidth - (m_upDown ? upDownWidth : 0);
    placeTwips(m_text3, 0, 0, fillerWidth, innerHeight);
    m_upDown1->setVisible(m_upDown);
    if (m_upDown)
        placeTwips(m_upDown1, innerWidth - upDownWidth, 0, upDownWidth, innerHeight);
    enableUpDown();
}

void NumberBox::enableUpDown()
{
    // A disabled control disables its children anyway; the box's own rule is the check box.
    m_upDown1->setEnabled(!CheckBox() || Checked());
}

void NumberBox::afterCheckClick()
{
    enableUpDown();
}

// ---------------------------------------------------------------------------------------------
// Keys, stepping, paste, drops

void NumberBox::handleKeyDown(short &keyCode, short &shift)
{
    switch (keyCode) {
    case Keyboard::VkInsert:
        if (shift == Keyboard::ShiftBit) {
            paste(QGuiApplication::clipboard()->text());
            keyCode = 0;
        }
        break;
    case Keyboard::VkDelete:
        apply(m_editor->deleteForward(editState()));
        keyCode = 0;
        shift = 0;
        break;
    case Keyboard::VkBack:
        // Its character does the deleting; with Alt it would be the line edit's undo.
        if (shift & Keyboard::AltBit)
            keyCode = 0;
        break;
    case Keyboard::VkUp:
    case Keyboard::VkDown:
        if (m_interceptArrowKeys && !Locked()) {
            Step(keyCode == Keyboard::VkUp);
            keyCode = 0;
            shift = 0;
        }
        break;
    default:
        break;
    }
}

void NumberBox::handleKeyPress(short &keyAscii)
{
    switch (keyAscii) {
    case 3: // Ctrl+C: the line edit copies
        return;
    case 22: // Ctrl+V
        paste(QGuiApplication::clipboard()->text());
        break;
    default:
        apply(m_editor->keyPress(editState(), keyAscii));
        break;
    }
    keyAscii = 0;
}

void NumberBox::paste(const QString &text)
{
    apply(m_editor->paste(editState(), text));
}

void NumberBox::Step(bool up)
{
    const NumberEditResult result = m_editor->step(editState(), up);
    if (result.changed())
        apply(result);
}

void NumberBox::upDownChanged()
{
    if (Locked() || m_stepping)
        return;
    if (!HasFocus()) {
        Text1()->setFocus(Qt::OtherFocusReason);
        Text1()->setCursorPosition(SelStart());
    }
    QScopedValueRollback<bool> stepping(m_stepping, true);
    Step(m_upDown1->Value() != 0);
    m_upDown1->setValue(0);
}

void NumberBox::onExitFocus()
{
    // A cleared check box means "no number"; there is nothing to bring into range.
    if (CheckBox() && !Checked())
        return;
    const std::optional<QVariant> repaired =
        NumberType::RangeRepair(Value(), m_dataType, m_minimum, m_maximum);
    if (!repaired)
        return;
    // Stored first: a Maximum below 0 refuses the set and the old text stays on screen.
    m_value = *repaired;
    try {
        setValue(m_value);
    } catch (const Error &) {
    }
}

bool NumberBox::filterDrop(QEvent *event)
{
    auto *drop = static_cast<QDropEvent *>(event);
    const QMimeData *data = drop->mimeData();
    NumberEditState state = editState();
    state.selStart = Text1()->cursorPositionAt(drop->position().toPoint());
    state.selLength = 0;
    const NumberEditResult result =
        m_editor->paste(state, data && data->hasText() ? data->text() : QString());
    if (!result.changed()) {
        drop->ignore();
        return true;
    }
    // Always a copy: a move would have the source cut its text past our editor.
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    if (event->type() == QEvent::Drop)
        apply(result);
    return true;
}

bool NumberBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Text1()) {
        try {
            switch (event->type()) {
            case QEvent::InputMethod: {
                // Composed text arrives whole and goes through the editor like a paste.
                const QString commit = static_cast<QInputMethodEvent *>(event)->commitString();
                if (!commit.isEmpty())
                    paste(commit);
                return true;
            }
            case QEvent::DragEnter:
            case QEvent::DragMove:
            case QEvent::Drop:
                if (OLEDropMode() == OLEDropAutomatic)
                    return filterDrop(event);
                break;
            default:
                break;
            }
        } catch (...) {
            return true;
        }
    }
    return ControlFrame::eventFilter(watched, event);
}

// ---------------------------------------------------------------------------------------------
// Persistence

void NumberBox::InitProperties()
{
    initCommon();
    m_display->setThousandSeparator(true);
    m_dataType = twCurrency;
    m_minimum = NumberType::TypeLowerLimit(m_dataType);
    m_maximum = NumberType::TypeUpperLimit(m_dataType);
    m_value = QVariant::fromValue<qint16>(0);
    m_display->setDecimalPlaces(MaxDecimalPlaces());
    m_increment = QVariant::fromValue<qint16>(1);
    m_negativeColor = DefaultNegativeColor;
    m_useNegativeColor = true;
    m_negativeDisabledColor = DefaultNegativeDisabledColor;
    m_display->setCurrencySymbol(QStringLiteral("$"));
    m_display->setShowCurrencySymbol(twNoCurrency);
    m_upDown = false;
    m_interceptArrowKeys = false;
    ShowValue();
    applyBorder();
    applyTextColor();
}

void NumberBox::ReadProperties(PropertyBag &bag)
{
    PropertyBag before;
    WriteProperties(before);
    try {
        readAll(bag);
    } catch (...) {
        // A bad value in the bag leaves the control as it was.
        UpdatingGuard updating(*this);
        readAll(before);
        throw;
    }
}

// An absent bound is the type's limit exactly as the DataType set leaves it (the Single and
// Double figures stay the doubles they are published as); a stored one is taken in the type.
QVariant NumberBox::bagBound(const PropertyBag &bag, const QString &key, const QVariant &limit) const
{
    const QVariant v = bag.ReadProperty(key, limit);
    return bag.contains(key) ? convert(bagNumber(v)) : limit;
}

void NumberBox::readAll(const PropertyBag &bag)
{
    m_dataType = int(bagInt(bag.ReadProperty(kDataType, qint32(twCurrency)), INT32_MIN, INT32_MAX));
    m_minimum = bagBound(bag, kMinimum, NumberType::TypeLowerLimit(m_dataType));
    m_maximum = bagBound(bag, kMaximum, NumberType::TypeUpperLimit(m_dataType));
    m_value = convert(bagNumber(bag.ReadProperty(kValue, QVariant::fromValue<qint16>(0))));
    readCommon(bag, {QStringLiteral("BackColor"), QStringLiteral("Enabled"), QStringLiteral("Font")});
    m_display->setThousandSeparator(bagBool(bag.ReadProperty(kThousandSeparator, true)));
    readCommon(bag, {QStringLiteral("Locked"), QStringLiteral("MouseIcon")});
    m_display->setDecimalPlaces(qint16(bagInt(bag.ReadProperty(kDecimalPlaces, qint16(0)), 0,
                                              MaxStoredDecimalPlaces)));
    m_upDown = bagBool(bag.ReadProperty(kUpDown, false));
    m_increment = convert(bagNumber(bag.ReadProperty(kIncrement, QVariant::fromValue<qint16>(1))));
    m_interceptArrowKeys = bagBool(bag.ReadProperty(kInterceptArrowKeys, false));
    readCommon(bag, {QStringLiteral("BorderStyle"), QStringLiteral("ForeColor"),
                     QStringLiteral("DisabledColor")});
    m_negativeColor = bagColor(bag.ReadProperty(kNegativeColor, qint32(DefaultNegativeColor)));
    m_useNegativeColor = bagBool(bag.ReadProperty(kUseNegativeColor, true));
    m_negativeDisabledColor =
        bagColor(bag.ReadProperty(kNegativeDisabledColor, qint32(DefaultNegativeDisabledColor)));
    readCommon(bag, {QStringLiteral("Alignment"), QStringLiteral("OLEDragMode"),
                     QStringLiteral("OLEDropMode"), QStringLiteral("MouseIcon"),
                     QStringLiteral("MousePointer"), QStringLiteral("SelectTextOnFocus")});
    m_display->setCurrencySymbol(bag.ReadProperty(kCurrencySymbol, QStringLiteral("$")).toString());
    m_display->setShowCurrencySymbol(
        int(bagInt(bag.ReadProperty(kShowCurrencySymbol, qint32(twNoCurrency)), twNoCurrency, twRight)));
    ShowValue();
    readCommon(bag, QStringLiteral("ToolTip"));
    m_upDown1->setToolTip(ControlFrame::ToolTip());
    readCommon(bag, {QStringLiteral("Checked"), QStringLiteral("CheckBox"),
                     QStringLiteral("NullIfEmpty")});
    enableUpDown();
    readCommon(bag, QStringLiteral("EnterAsTab"));
    relayout();
    applyTextColor();
}

void NumberBox::WriteProperties(PropertyBag &bag) const
{
    bag.WriteProperty(kDataType, qint32(m_dataType), qint32(twCurrency));
    bag.WriteProperty(kMinimum, m_minimum, NumberType::TypeLowerLimit(m_dataType));
    bag.WriteProperty(kMaximum, m_maximum, NumberType::TypeUpperLimit(m_dataType));
    bag.WriteProperty(kValue, m_value, QVariant::fromValue<qint16>(0));
    writeCommon(bag, {QStringLiteral("BackColor"), QStringLiteral("Enabled"), QStringLiteral("Font")});
    bag.WriteProperty(kThousandSeparator, ThousandSeparator(), true);
    writeCommon(bag, {QStringLiteral("Locked"), QStringLiteral("MouseIcon")});
    bag.WriteProperty(kDecimalPlaces, DecimalPlaces(), qint16(0));
    bag.WriteProperty(kUpDown, m_upDown, false);
    bag.WriteProperty(kIncrement, m_increment, QVariant::fromValue<qint16>(1));
    bag.WriteProperty(kInterceptArrowKeys, m_interceptArrowKeys, false);
    writeCommon(bag, {QStringLiteral("BorderStyle"), QStringLiteral("ForeColor"),
                      QStringLiteral("DisabledColor")});
    bag.WriteProperty(kNegativeColor, qint32(m_negativeColor.value()), qint32(DefaultNegativeColor));
    bag.WriteProperty(kUseNegativeColor, m_useNegativeColor, true);
    bag.WriteProperty(kNegativeDisabledColor, qint32(m_negativeDisabledColor.value()),
                      qint32(DefaultNegativeDisabledColor));
    writeCommon(bag, {QStringLiteral("Alignment"), QStringLiteral("OLEDragMode"),
                      QStringLiteral("OLEDropMode"), QStringLiteral("MouseIcon"),
                      QStringLiteral("MousePointer"), QStringLiteral("SelectTextOnFocus")});
    bag.WriteProperty(kCurrencySymbol, CurrencySymbol(), QStringLiteral("$"));
    bag.WriteProperty(kShowCurrencySymbol, qint32(ShowCurrencySymbol()), qint32(twNoCurrency));
    writeCommon(bag, {QStringLiteral("ToolTip"), QStringLiteral("Checked"), QStringLiteral("CheckBox"),
                      QStringLiteral("NullIfEmpty"), QStringLiteral("EnterAsTab")});
}

} // namespace Tarnwell
