#include <tarnwell/error.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/variant.h>

#include "numberengine/numbereditor.h"
#include "numberengine/numbertype.h"
#include "platform/keyboard.h"
#include "shared/bagkeys.h"
#include "shared/bagvalues.h"
#include "shared/commonproperties.h"
#include "shared/contextmenuhook.h"
#include "shared/modelvalues.h"
#include "shared/polishrequests.h"
#include "shared/usersettings.h"
#include "shared/uservalue.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QScopedValueRollback>

namespace Tarnwell {

NumberBox::NumberBox(QWidget *parent)
    : ValueBox(parent, nullptr, ArrowKeysFollow::Reported),
      m_editor(std::make_unique<NumberEditor>())
{
    Variant::registerTypes();
    // The line edit's own menu would offer undo, cut and paste past the number editor.
    ContextMenuHook::installWindowHook(Text1());
    InitProperties();
    clearDirty();
    dropPolishRequests(this);
    m_userValue = std::make_unique<UserValue>(
        *this, [this] { return value(); }, [this](const QVariant &now) { emit valueChanged(now); });
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
// Value and range

QVariant NumberBox::Value() const
{
    if (!CheckBox() || Checked())
        return m_editor->rules().convert(m_value);
    return noValue();
}

void NumberBox::setValue(const QVariant &value)
{
    const bool null = Variant::isNull(value);
    QVariant number = null ? QVariant() : value;
    if (number.typeId() == QMetaType::QString && number.toString().isEmpty())
        number = QVariant();
    // Checked before the check box moves, so that a refused value changes nothing.
    m_editor->rules().checkNumber(number);

    if (null) {
        if (CheckBox())
            setCheckValue(false);
        updateValueControls();
    } else if (UserMode() && CheckBox()) {
        setCheckValue(true);
    }
    if (!m_editor->rules().isWithinRange(number))
        return;
    if (!canPropertyChange(BagKey::Value))
        return;
    m_value = m_editor->rules().convert(number);
    markDirty(BagKey::Value);
    showValue();
}

QVariant NumberBox::value() const
{
    const QVariant number = Value();
    if (!number.isValid() || Variant::isNull(number))
        return QVariant();
    if (m_modelType.isValid())
        return ModelValues::toNumber(number, m_modelType);
    const int type = DataType();
    const bool integer = type == twByte || type == twInteger || type == twLong;
    return ModelValues::toNumber(number, integer ? QMetaType::fromType<int>()
                                                 : QMetaType::fromType<double>());
}

void NumberBox::setModelValue(const QVariant &value)
{
    const QVariant number = ModelValues::unwrapped(value);
    m_userValue->write(number, [&] {
        if (!number.isValid() || Variant::isNull(number)) {
            setValue(Variant::null());
            return;
        }
        m_editor->rules().checkNumber(number);
        // Value ignores a number outside the range; here that is a refusal the writer hears of.
        if (!m_editor->rules().isWithinRange(number))
            throw Error(Error::InvalidPropertyValue);
        // The type first, so that the change is told once, in the cell's type.
        const QMetaType previous = m_modelType;
        if (ModelValues::isNumber(number.metaType()))
            m_modelType = number.metaType();
        try {
            setValue(number);
        } catch (const Error &) {
            m_modelType = previous;
            throw;
        }
    });
}

QVariant NumberBox::Minimum() const
{
    return m_editor->rules().minimum();
}

void NumberBox::setMinimum(const QVariant &minimum)
{
    if (!m_editor->rules().setMinimum(minimum))
        return;
    markDirty(BagKey::Minimum);
    if (const std::optional<QVariant> raised = m_editor->rules().raisedToMinimum(m_value))
        setValue(*raised);
}

QVariant NumberBox::Maximum() const
{
    return m_editor->rules().maximum();
}

void NumberBox::setMaximum(const QVariant &maximum)
{
    if (!m_editor->rules().setMaximum(maximum))
        return;
    markDirty(BagKey::Maximum);
    if (const std::optional<QVariant> lowered = m_editor->rules().loweredToMaximum(m_value))
        setValue(*lowered);
}

QVariant NumberBox::Increment() const
{
    return m_editor->rules().increment();
}

void NumberBox::setIncrement(const QVariant &increment)
{
    m_editor->rules().setIncrement(increment);
    markDirty(BagKey::Increment);
}

twDataTypeConstants NumberBox::DataType() const
{
    return static_cast<twDataTypeConstants>(m_editor->dataType());
}

void NumberBox::setDataType(int dataType)
{
    m_editor->rules().setDataType(dataType);
    markDirty(BagKey::DataType);
    m_value = QVariant::fromValue<qint16>(0);
    m_editor->display().setDecimalPlaces(MaxDecimalPlaces());
    showValue();
}

// ---------------------------------------------------------------------------------------------
// Display properties

qint16 NumberBox::DecimalPlaces() const
{
    return m_editor->display().decimalPlaces();
}

void NumberBox::setDecimalPlaces(qint16 places)
{
    if (places < 0 || places > MaxDecimalPlaces())
        return;
    m_editor->display().setDecimalPlaces(places);
    markDirty(BagKey::DecimalPlaces);
    showValue();
}

qint16 NumberBox::MaxDecimalPlaces() const
{
    return NumberType::regionalDecimalPlaces(m_editor->dataType(), UserSettings::numberDigits(),
                                             UserSettings::currencyDigits());
}

void NumberBox::setMaxDecimalPlaces(qint16)
{
    refuseSet();
}

bool NumberBox::ThousandSeparator() const
{
    return m_editor->display().thousandSeparator();
}

void NumberBox::setThousandSeparator(bool on)
{
    m_editor->display().setThousandSeparator(on);
    markDirty(BagKey::ThousandSeparator);
    showValue();
}

QString NumberBox::CurrencySymbol() const
{
    return m_editor->display().currencySymbol();
}

void NumberBox::setCurrencySymbol(const QString &symbol)
{
    m_editor->display().setCurrencySymbol(symbol);
    markDirty(BagKey::CurrencySymbol);
    showValue();
}

twCurrencyPositionConstants NumberBox::ShowCurrencySymbol() const
{
    return static_cast<twCurrencyPositionConstants>(m_editor->display().showCurrencySymbol());
}

void NumberBox::setShowCurrencySymbol(twCurrencyPositionConstants position)
{
    const int p = int(position);
    if (p < twNoCurrency || p > twRight)
        throw Error(Error::InvalidPropertyValue);
    m_editor->display().setShowCurrencySymbol(p);
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
        text.isEmpty() ? m_editor->backspace(state) : m_editor->paste(state, text);
    // A text that leaves no number is refused; a selection replaced by the same characters is
    // an edit that changes nothing.
    if (!result.changed() && !(text == SelText() && (!text.isEmpty() || SelLength() == 0)))
        throw Error(Error::InvalidPropertyValue);
    apply(state, result);
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
    // As the host's text box does when its text is set, the caret goes to the front.
    writeNumber(m_editor->showValue(m_value), 0, 0);
    refreshTextColor();
}

void NumberBox::apply(const NumberEditState &state, const NumberEditResult &result)
{
    if (result.valueChanged)
        m_value = state.value;
    if (result.textChanged || result.caretChanged)
        writeNumber(state.text, state.selStart, state.selLength);
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
    return state;
}

void NumberBox::onTextChanged(const QString &text)
{
    if (text != m_shownText) {
        normaliseForeignText(text);
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
    const QVariant value = m_editor->valueOfText(text);
    if (value.isValid()) {
        m_value = value;
        const QString shown = m_editor->showValue(value);
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
    if (!m_editor)
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
        runEdit(NumberEdit::deleteForward());
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
        runEdit(NumberEdit::key(keyAscii));
        break;
    }
    keyAscii = 0;
}

void NumberBox::runEdit(const NumberEdit &edit)
{
    NumberEditState state = editState();
    const NumberEditResult result = m_editor->edit(state, edit);
    apply(state, result);
}

void NumberBox::paste(const QString &text)
{
    runEdit(NumberEdit::paste(text));
}

bool NumberBox::stepValue(bool up)
{
    NumberEditState state = editState();
    const NumberEditResult result = m_editor->step(state, up);
    if (result.changed())
        apply(state, result);
    // The text is what the host sees move: a step that shows the same text raises nothing.
    return result.textChanged;
}

ValueBox::StepEnabled NumberBox::stepEnabled() const
{
    // The steps the editor itself would take: Value +- Increment within the type's limits.
    NumberEditState up = editState();
    up.locked = false;
    NumberEditState down = up;
    StepEnabled enabled;
    if (m_editor->step(up, true).valueChanged)
        enabled |= StepUpEnabled;
    if (m_editor->step(down, false).valueChanged)
        enabled |= StepDownEnabled;
    return enabled;
}

void NumberBox::onExitFocus()
{
    // A cleared check box means "no number"; there is nothing to bring into range.
    if (CheckBox() && !Checked())
        return;
    const std::optional<QVariant> repaired = m_editor->rules().repairOnLeaving(Value());
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
        apply(state, result);
    return true;
}

} // namespace Tarnwell
