#include <tarnwell/maskbox.h>

#include <tarnwell/error.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/variant.h>

#include "maskengine/maskengine.h"
#include "shared/bagkeys.h"
#include "shared/bagvalues.h"
#include "shared/commonproperties.h"
#include "shared/polishrequests.h"
#include "shared/uservalue.h"

#include <QLineEdit>
#include <QMetaClassInfo>
#include <QPointer>

namespace Tarnwell {

namespace {

constexpr short KeyBackspace = 8;
constexpr short KeyCtrlC = 3;
constexpr short KeyDelete = 46;

bool isCharCase(int value)
{
    return value >= twAnyCase && value <= twLowerCase;
}

QChar charOf(short keyAscii)
{
    return QChar(char16_t(static_cast<unsigned short>(keyAscii)));
}

} // namespace

MaskBox::MaskBox(QWidget *parent)
    : ControlFrame(parent), m_engine(std::make_unique<MaskEngine>())
{
    Variant::registerTypes();
    setFocusPolicy(Qt::StrongFocus); // as a line edit's: a wheel turned over it leaves the focus
    InitProperties();
    dropPolishRequests(this);
    m_userValue = std::make_unique<UserValue>(
        *this, [this] { return QVariant(text()); },
        [this](const QVariant &now) { emit textChanged(now.toString()); });
}

MaskBox::~MaskBox() = default;

QString MaskBox::helpString(const char *propertyName)
{
    const QByteArray key = QByteArray("Help:") + propertyName;
    const int index = staticMetaObject.indexOfClassInfo(key.constData());
    return index < 0 ? QString()
                     : QString::fromUtf8(staticMetaObject.classInfo(index).value());
}

// ---------------------------------------------------------------------------------------------
// Properties

QVariant MaskBox::Value() const
{
    if (CheckBox() && !Checked())
        return noValue();
    QString raw = m_engine->extractMaskValue(Text1()->text(), m_charCase);
    if (!m_promptInclude)
        raw.remove(QLatin1Char(' '));
    return raw;
}

void MaskBox::setValue(const QVariant &value)
{
    if (!UserMode())
        throw Error(Error::SetNotPermitted);
    if (!canPropertyChange(BagKey::Value))
        return;
    const bool isNull = Variant::isNull(value);
    // Converted before anything changes, so that a value with no text form changes nothing.
    const QString text = isNull ? QString() : Variant::toString(value);
    QPointer<MaskBox> self(this);
    if (CheckBox())
        setCheckValue(!isNull); // the click logic: Checked, Text1 shown, Change
    if (!self)
        return;
    setText1(m_engine->formatMaskValue(text));
    if (self)
        markDirty(BagKey::Value);
}

void MaskBox::setCharCase(twCharCaseConstants charCase)
{
    if (!isCharCase(charCase))
        throw Error(Error::InvalidPropertyValue);
    m_charCase = charCase;
    markDirty(BagKey::CharCase);
}

QString MaskBox::Text() const
{
    if (CheckBox() && !Checked())
        return QString();
    return Text1()->text();
}

void MaskBox::setText(const QString &)
{
    refuseSet();
}

QString MaskBox::Mask() const
{
    return m_engine->mask();
}

void MaskBox::setMask(const QString &mask)
{
    if (mask == m_engine->mask())
        return;
    const QString raw = m_engine->extractMaskValue(Text1()->text(), m_charCase);
    m_engine->parseMask(mask); // throws before changing anything
    QPointer<MaskBox> self(this);
    // No UpdatingGuard here: the host sees the re-formatted text as a Change.
    setText1(UserMode() ? m_engine->formatMaskValue(raw) : mask);
    if (self)
        markDirty(BagKey::Mask);
}

void MaskBox::setPromptInclude(bool on)
{
    m_promptInclude = on;
    markDirty(BagKey::PromptInclude);
}

QString MaskBox::text() const
{
    const QVariant value = Value();
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

void MaskBox::setModelText(const QString &text)
{
    m_userValue->write(text, [&] {
        if (text.isNull()) {
            setValue(Variant::null());
            return;
        }
        // Value would cut a long text to the mask and empty the box for one that does not fit.
        const bool fits = m_engine->isEmpty()
                          || (text.size() <= m_engine->inputCount()
                              && !m_engine->formatMaskValue(text).isEmpty());
        if (!fits)
            throw Error(Error::InvalidPropertyValue);
        setValue(text);
    });
}

void MaskBox::setText1(const QString &text)
{
    // A text written by the program starts with the caret at its beginning, as the host's text
    // box does.
    writeText(text, 0);
}

// ---------------------------------------------------------------------------------------------
// Keys

void MaskBox::handleKeyDown(short &keyCode, short &shift)
{
    if (m_engine->isEmpty() || keyCode != KeyDelete)
        return;
    try {
        MaskEditState state{Text1()->text(), SelStart(), SelLength(), Locked()};
        if (m_engine->deleteForward(state).accepted)
            writeText(state.text, state.selStart);
    } catch (...) {
        // A failed delete is a refused one: the key is consumed all the same.
    }
    keyCode = 0;
    shift = 0;
}

void MaskBox::handleKeyPress(short &keyAscii)
{
    if (m_engine->isEmpty()) {
        if (MaskEngine::isKeyAdmitted(keyAscii))
            keyAscii = short(MaskEngine::applyTypedCase(charOf(keyAscii), m_charCase).unicode());
        return;
    }
    if (keyAscii == KeyCtrlC)
        return; // copying works as usual
    try {
        maskKeyPress(keyAscii);
    } catch (...) {
    }
    // Every other key is the mask's: Enter, Escape, Ctrl+V, Ctrl+X, Ctrl+Z and the rest type
    // nothing into a masked box.
    keyAscii = 0;
}

void MaskBox::maskKeyPress(short keyAscii)
{
    MaskEditState state{Text1()->text(), SelStart(), SelLength(), Locked()};
    MaskEditResult result;
    if (MaskEngine::isKeyAdmitted(keyAscii)) {
        const QChar typed = MaskEngine::applyTypedCase(charOf(keyAscii), m_charCase);
        result = m_engine->editMaskedText(state, QStringView(&typed, 1));
    } else if (keyAscii == KeyBackspace) {
        result = m_engine->backspace(state);
    } else {
        return;
    }
    if (result.accepted)
        writeText(state.text, state.selStart); // Change, once, when the text changed
}

// Text that came without keys stays as it is while the user edits; a box that does not have the
// focus (a drop, a program's insert) is brought back to the mask as soon as the text box has
// taken it, since no leaving will follow.
void MaskBox::onForeignText(const QString &text, const QString &previous)
{
    ControlFrame::onForeignText(text, previous);
    if (m_engine->isEmpty() || controlHasFocus() || !UserMode() || m_normalisePending)
        return;
    m_normalisePending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_normalisePending = false;
            if (!controlHasFocus() && UserMode()) {
                try {
                    normalise();
                } catch (...) {
                }
            }
        },
        Qt::QueuedConnection);
}

// ---------------------------------------------------------------------------------------------
// Focus

void MaskBox::onExitFocus()
{
    ControlFrame::onExitFocus();
    // At design time the box shows the mask itself, which is no value of it.
    if (UserMode())
        normalise();
}

void MaskBox::normalise()
{
    if (m_engine->isEmpty())
        return;
    UpdatingGuard guard(*this);
    // Twice, as the text box has always done; the second pass leaves a well-formed text alone.
    for (int pass = 0; pass < 2; ++pass)
        setText1(m_engine->formatMaskValue(m_engine->extractMaskValue(Text1()->text(), m_charCase)));
}

// ---------------------------------------------------------------------------------------------
// Persistence and size

void MaskBox::InitProperties()
{
    CommonProperties::initialise(*this);
    m_engine->parseMask(QString());
    m_charCase = twAnyCase;
    m_promptInclude = true;
    UpdatingGuard guard(*this);
    setText1(QString());
}

void MaskBox::WriteProperties(PropertyBag &bag) const
{
    using K = CommonKey;
    CommonProperties::write(*this, bag, {K::BackColor, K::Enabled, K::Font, K::Locked, K::MouseIcon,
                                         K::BorderStyle, K::ForeColor, K::DisabledColor, K::Alignment,
                                         K::OLEDragMode, K::OLEDropMode, K::MouseIcon,
                                         K::MousePointer, K::SelectTextOnFocus});
    bag.WriteProperty(BagKey::Mask, m_engine->mask(), QString());
    bag.WriteProperty(BagKey::Text, Text1()->text(), QString());
    bag.WriteProperty(BagKey::CharCase, qint16(m_charCase), qint16(twAnyCase));
    bag.WriteProperty(BagKey::PromptInclude, m_promptInclude, true);
    CommonProperties::write(*this, bag, {K::ToolTip, K::CheckBox, K::Checked, K::NullIfEmpty,
                                         K::EnterAsTab});
}

void MaskBox::ReadProperties(PropertyBag &bag)
{
    using K = CommonKey;
    MaskEngine engine;
    BagPlan plan(*this);
    plan.common({K::BackColor, K::Enabled, K::Font, K::Locked, K::MouseIcon, K::BorderStyle,
                 K::ForeColor, K::DisabledColor})
        .step([this] { applyBorder(); })
        .common({K::Alignment, K::OLEDragMode, K::OLEDropMode, K::MouseIcon, K::MousePointer,
                 K::SelectTextOnFocus})
        .key(BagKey::Mask, QString(),
             [&engine](const QVariant &v) {
                 const QString mask = BagValue::toString(v);
                 engine.parseMask(mask); // Error(6) for an oversized mask, before anything changes
                 return mask;
             },
             [this, &engine](const QVariant &mask) {
                 *m_engine = engine;
                 // No saved text comes back: a loaded box starts blank.
                 setText1(UserMode() ? m_engine->blankTemplate() : mask.toString());
             })
        .key(BagKey::CharCase, qint16(twAnyCase),
             [](const QVariant &v) { return int(BagValue::toInt(v, twAnyCase, twLowerCase)); },
             [this](const QVariant &v) { m_charCase = twCharCaseConstants(v.toInt()); })
        .key(BagKey::PromptInclude, true, [](const QVariant &v) { return BagValue::toBool(v); },
             [this](const QVariant &v) { m_promptInclude = v.toBool(); })
        .common({K::ToolTip, K::Checked, K::CheckBox, K::NullIfEmpty, K::EnterAsTab});
    plan.read(bag);
}

} // namespace Tarnwell
