#include <tarnwell/error.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/variant.h>

#include "numberengine/numberdisplay.h"
#include "numberengine/numbereditor.h"
#include "numberengine/numbertype.h"
#include "numberengine/textworkspace.h"
#include "platform/keyboard.h"
#include "shared/bagkeys.h"
#include "shared/bagvalues.h"
#include "shared/commonproperties.h"
#include "shared/contextmenuhook.h"
#include "shared/usersettings.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QScopedValueRollback>

namespace Tarnwell {

NumberBox::NumberBox(QWidget *parent)
    : ValueBox(parent, EditorKind::Line, QString(), ArrowKeysFollow::Reported),
      m_display(std::make_unique<NumberDisplay>(QLocale())),
      m_editor(std::make_unique<NumberEditor>(*m_display)),
      m_text2(std::make_unique<TextWorkspace>())
{
    Variant::registerTypes();
    // The line edit's own menu would offer undo, cut and paste past the number editor.
    ContextMenuHook::installWindowHook(Text1());
    InitProperties();
    clearDirty();
}

NumberBox::~NumberBox()
{
    ContextMenuHook::removeWindowHook(Text1());
}

QLineEdit *NumberBox::text3()
{
    if (m_text3)
        return m_text3;
    // The filler behind Text1: what shows when a cleared check box hides the number.
    m_text3 = new QLineEdit(this);
    m_text3->setObjectName(QStringLiteral("Text3"));
    m_text3->setFrame(false);
    m_text3->setReadOnly(true);
    m_text3->setFocusPolicy(Qt::NoFocus);
    m_text3->setContextMenuPolicy(Qt::NoContextMenu);
    m_text3->setAcceptDrops(false);
    m_text3->lower();
    paintTextBox(m_text3);
    m_text3->show();
    return m_text3;
}

// ---------------------------------------------------------------------------------------------
// Conversions

QVariant NumberBox::convert(const QVariant &value) const
{
    return NumberType::convertToType(value, m_dataType, m_display->locale());
}

bool NumberBox::inRange(const QVariant &value, bool useMinMax) const
{
    return NumberType::isInRange(value, useMinMax, m_dataType, m_minimum, m_maximum,
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
    return noValue();
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
            setCheckValue(false);
        updateValueControls();
    } else if (UserMode() && CheckBox()) {
        setCheckValue(true);
    }
    if (!inRange(number, true))
        return;
    if (!canPropertyChange(BagKey::Value))
        return;
    m_value = convert(number);
    markDirty(BagKey::Value);
    showValue();
}

void NumberBox::setMinimum(const QVariant &minimum)
{
    validateNumber(minimum);
    const QVariant converted = convert(minimum);
    const std::optional<int> order = NumberType::compare(converted, convert(m_maximum), m_dataType);
    if (!order || *order > 0)
        return;
    m_minimum = converted;
    markDirty(BagKey::Minimum);
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
    markDirty(BagKey::Maximum);
    const std::optional<int> above = NumberType::compare(convert(m_value), m_maximum, m_dataType);
    if (above && *above > 0)
        setValue(m_maximum);
}

void NumberBox::setIncrement(const QVariant &increment)
{
    validateNumber(increment);
    m_increment = convert(increment);
    markDirty(BagKey::Increment);
}

void NumberBox::setDataType(int dataType)
{
    m_dataType = dataType;
    markDirty(BagKey::DataType);
    m_minimum = NumberType::typeLowerLimit(dataType);
    m_maximum = NumberType::typeUpperLimit(dataType);
    m_increment = QVariant::fromValue<qint16>(1);
    m_value = QVariant::fromValue<qint16>(0);
    m_display->setDecimalPlaces(MaxDecimalPlaces());
    showValue();
}

// ---------------------------------------------------------------------------------------------
// Display properties

qint16 NumberBox::DecimalPlaces() const
{
    return m_display->decimalPlaces();
}

void NumberBox::setDecimalPlaces(qint16 places)
{
    if (places < 0 || places > MaxDecimalPlaces())
        return;
    m_display->setDecimalPlaces(places);
    markDirty(BagKey::DecimalPlaces);
    showValue();
}

qint16 NumberBox::MaxDecimalPlaces() const
{
    return NumberType::regionalDecimalPlaces(m_dataType, UserSettings::numberDigits(),
                                             UserSettings::currencyDigits());
}

void NumberBox::setMaxDecimalPlaces(qint16)
{
    refuseSet();
}

bool NumberBox::ThousandSeparator() const
{
    return m_display->thousandSeparator();
}

void NumberBox::setThousandSeparator(bool on)
{
    m_display->setThousandSeparator(on);
    markDirty(BagKey::ThousandSeparator);
    showValue();
}

QString NumberBox::CurrencySymbol() const
{
    return m_display->currencySymbol();
}

void NumberBox::setCurrencySymbol(const QString &symbol)
{
    m_display->setCurrencySymbol(symbol);
    markDirty(BagKey::CurrencySymbol);
    showValue();
}

twCurrencyPositionConstants NumberBox::ShowCurrencySymbol() const
{
    return static_cast<twCurrencyPositionConstants>(m_display->showCurrencySymbol());
}

void NumberBox::setShowCurrencySymbol(twCurrencyPositionConstants position)
{
    const int p = int(position);
    if (p < twNoCurrency || p > twRight)
        throw Error(Error::InvalidPropertyValue);
    m_display->setShowCurrencySymbol(p);
    markDirty(BagKey::ShowCurrencySymbol);
    showValue();
}

void NumberBox::setNegativeColor(OleColor color)
{
    m_negativeColor = color;
    applyTextColor();
    markDirty(BagKey::NegativeColor);
}

void NumberBox::setNegativeDisabledColor(OleColor color)
{
    m_negativeDisabledColor = color;
    applyTextColor();
    markDirty(BagKey::NegativeDisabledColor);
}

void NumberBox::setUseNegativeColor(bool on)
{
    m_useNegativeColor = on;
    applyTextColor();
    markDirty(BagKey::UseNegativeColor);
}

void NumberBox::setSelText(const QString &text)
{
    NumberEditState state = editState();
    state.locked = false; // Locked keeps the user out, not the host's code
    const NumberEditResult result =
        text.isEmpty() ? m_editor->insertText(state, QString()) : m_editor->paste(state, text);
    // A text that leaves no number is refused; a selection replaced by the same characters is
    // an edit that changes nothing.
    if (!result.changed() && !(text == SelText() && (!text.isEmpty() || SelLength() == 0)))
        throw Error(Error::InvalidPropertyValue);
    apply(result);
}

// ---------------------------------------------------------------------------------------------
// Showing the number

void NumberBox::writeNumber(const QString &text, int selStart, int selLength)
{
    m_shownText = text;
    writeText(text, selStart, selLength);
}

void NumberBox::showValue()
{
    m_text2->setText(m_display->formatNumber(m_value, m_dataType));
    m_display->addCurrencySymbol(*m_text2);
    // As the host's text box does when its text is set, the caret goes to the front.
    writeNumber(m_text2->text(), 0, 0);
    refreshTextColor();
}

void NumberBox::apply(const NumberEditResult &result)
{
    if (result.valueChanged)
        m_value = result.value;
    if (result.textChanged || result.caretChanged)
        writeNumber(result.text, result.selStart, result.selLength);
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
    if (shownText() != m_shownText) {
        normaliseForeignText(shownText());
        return;
    }
    // Under isUpdating() the writer reports the change itself (a step), or there is none.
    if (!isUpdating()) {
        markDirty(BagKey::Value);
        refreshTextColor();
        emit Change();
    }
}

void NumberBox::onForeignText(const QString &text, const QString &)
{
    normaliseForeignText(text);
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
        if (shown == text) {
            // Taken as it came: the change is the host's to hear of.
            m_shownText = shown;
            markDirty(BagKey::Value);
            if (!isUpdating())
                emit Change();
        } else {
            writeNumber(shown, int(shown.size()), 0); // Change through onTextChanged()
        }
    } else {
        // Back to what was shown; nothing changed, so no Change either.
        UpdatingGuard updating(*this);
        writeNumber(m_shownText, int(m_shownText.size()), 0);
    }
    refreshTextColor();
}

// ---------------------------------------------------------------------------------------------
// Colours and layout

OleColor NumberBox::textColor() const
{
    switch (NumberDisplay::colorRole(Enabled(), m_useNegativeColor, m_value)) {
    case NumberDisplay::NegativeColorRole: return m_negativeColor;
    case NumberDisplay::DisabledColorRole: return DisabledColor();
    case NumberDisplay::NegativeDisabledColorRole: return m_negativeDisabledColor;
    case NumberDisplay::ForeColorRole: break;
    }
    return ForeColor();
}

void NumberBox::applyTextColor()
{
    ControlFrame::applyTextColor();
    if (m_text3)
        paintTextBox(m_text3);
    m_appliedColorRole = NumberDisplay::colorRole(Enabled(), m_useNegativeColor, m_value);
}

void NumberBox::refreshTextColor()
{
    // Repainting the palette on every keystroke would cost a palette copy; only a new role does.
    if (NumberDisplay::colorRole(Enabled(), m_useNegativeColor, m_value) != m_appliedColorRole)
        applyTextColor();
}

void NumberBox::relayout()
{
    ValueBox::relayout();
    if (!m_display)
        return; // still constructing
    if (CheckBox() || m_text3) {
        const int upDownWidth = UserSettings::scrollWidthTwips();
        const int innerWidth = innerWidthTwips();
        const int fillerWidth = BorderStyle() == twNone ? innerWidth - upDownWidth + 30
                                                        : innerWidth - (UpDown() ? upDownWidth : 0);
        placeTwips(text3(), 0, 0, fillerWidth, innerHeightTwips());
    }
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
        if (!Locked() && arrowKeyStep(keyCode, shift)) {
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

bool NumberBox::stepValue(bool up)
{
    const NumberEditResult result = m_editor->step(editState(), up);
    if (result.changed())
        apply(result);
    // The text is what the host sees move: a step that shows the same text raises nothing.
    return result.textChanged;
}

ValueBox::StepEnabled NumberBox::stepEnabled() const
{
    // The steps the editor itself would take: Value +- Increment within the type's limits.
    NumberEditState state = editState();
    state.locked = false;
    StepEnabled enabled;
    if (m_editor->step(state, true).valueChanged)
        enabled |= StepUpEnabled;
    if (m_editor->step(state, false).valueChanged)
        enabled |= StepDownEnabled;
    return enabled;
}

void NumberBox::onExitFocus()
{
    // A cleared check box means "no number"; there is nothing to bring into range.
    if (CheckBox() && !Checked())
        return;
    const std::optional<QVariant> repaired =
        NumberType::rangeRepair(Value(), m_dataType, m_minimum, m_maximum);
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
    // Automatic drops go through the number editor like a paste; the other modes are the
    // frame's.
    if (OLEDropMode() != OLEDropAutomatic || event->type() == QEvent::DragLeave)
        return false;
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

} // namespace Tarnwell
