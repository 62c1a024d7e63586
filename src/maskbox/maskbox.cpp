#include <tarnwell/maskbox.h>

#include <tarnwell/error.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/variant.h>

#include "maskengine/maskengine.h"

#include <QCheckBox>
#include <QEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMetaClassInfo>
#include <QPointer>

namespace Tarnwell {

namespace {

const QString kMask = QStringLiteral("Mask");
const QString kText = QStringLiteral("Text");
const QString kCharCase = QStringLiteral("CharCase");
const QString kPromptInclude = QStringLiteral("PromptInclude");
const QString kValue = QStringLiteral("Value");

constexpr short KeyBackspace = 8;
constexpr short KeyCtrlC = 3;
constexpr short KeyDelete = 46;

// The bag's keys in the order they are written; reading differs only in "Text" (never read) and
// in reading "Checked" before "CheckBox".
const QStringList &writeOrder()
{
    static const QStringList keys{
        QStringLiteral("BackColor"),     QStringLiteral("Enabled"),
        QStringLiteral("Font"),          QStringLiteral("Locked"),
        QStringLiteral("MouseIcon"),     QStringLiteral("BorderStyle"),
        QStringLiteral("ForeColor"),     QStringLiteral("DisabledColor"),
        QStringLiteral("Alignment"),     QStringLiteral("OLEDragMode"),
        QStringLiteral("OLEDropMode"),   QStringLiteral("MouseIcon"),
        QStringLiteral("MousePointer"),  QStringLiteral("SelectTextOnFocus"),
        kMask,                           kText,
        kCharCase,                       kPromptInclude,
        QStringLiteral("ToolTip"),       QStringLiteral("CheckBox"),
        QStringLiteral("Checked"),       QStringLiteral("NullIfEmpty"),
        QStringLiteral("EnterAsTab")};
    return keys;
}

bool isCharCase(int value)
{
    return value >= twAnyCase && value <= twLowerCase;
}

int charCaseFrom(const QVariant &v)
{
    bool ok = false;
    const qlonglong n = v.toLongLong(&ok);
    if (!ok || !isCharCase(int(n)) || n != int(n))
        throw Error(Error::InvalidPropertyValue);
    return int(n);
}

QChar charOf(short keyAscii)
{
    return QChar(char16_t(static_cast<unsigned short>(keyAscii)));
}

} // namespace

MaskBox::MaskBox(QWidget *parent) : ControlFrame(parent), m_engine(std::make_unique<MaskEngine>())
{
    Variant::registerTypes();
    InitProperties();
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
        return NullIfEmpty() ? Variant::null() : Variant::empty();
    QString raw = m_engine->ExtractMaskValue(Text1()->text(), m_charCase);
    if (!m_promptInclude)
        raw.remove(QLatin1Char(' '));
    return raw;
}

void MaskBox::setValue(const QVariant &value)
{
    if (!UserMode())
        throw Error(Error::SetNotPermitted);
    if (!CanPropertyChange(kValue))
        return;
    const bool isNull = Variant::isNull(value);
    // Converted before anything changes, so that a value with no text form changes nothing.
    const QString text = isNull ? QString() : Variant::toString(value);
    QPointer<MaskBox> self(this);
    if (CheckBox())
        Check1()->setChecked(!isNull); // the click logic: Checked, Text1 shown, Change
    if (!self)
        return;
    setText1(formatted(text));
    if (self)
        markDirty(kValue);
}

void MaskBox::setCharCase(twCharCaseConstants charCase)
{
    if (!isCharCase(charCase))
        throw Error(Error::InvalidPropertyValue);
    m_charCase = charCase;
    markDirty(kCharCase);
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
    const QString raw = m_engine->ExtractMaskValue(Text1()->text(), m_charCase);
    m_engine->ParseMask(mask); // throws before changing anything
    QPointer<MaskBox> self(this);
    // Not under Updating: the host sees the re-formatted text as a Change.
    setText1(UserMode() ? m_engine->FormatMaskValue(raw) : mask);
    if (self)
        markDirty(kMask);
}

void MaskBox::setPromptInclude(bool on)
{
    m_promptInclude = on;
    markDirty(kPromptInclude);
}

QString MaskBox::formatted(const QString &raw) const
{
    return m_engine->FormatMaskValue(raw);
}

void MaskBox::setText1(const QString &text)
{
    QPointer<MaskBox> self(this);
    if (Text1()->text() != text)
        Text1()->setText(text);
    // A text written by the program starts with the caret at its beginning, as the host's text
    // box does; a Change handler may have destroyed the control meanwhile.
    if (self)
        Text1()->setCursorPosition(0);
}

// ---------------------------------------------------------------------------------------------
// Keys

void MaskBox::handleKeyDown(short &keyCode, short &shift)
{
    if (m_engine->isEmpty() || keyCode != KeyDelete)
        return;
    try {
        MaskEditState state{Text1()->text(), SelStart(), SelLength(), Locked()};
        const MaskEditResult result = m_engine->Delete(state);
        if (result.accepted) {
            QPointer<MaskBox> self(this);
            if (result.textChanged)
                Text1()->setText(state.text);
            if (self)
                Text1()->setCursorPosition(state.selStart);
        }
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
        result = m_engine->EditMaskedText(state, QStringView(&typed, 1));
    } else if (keyAscii == KeyBackspace) {
        result = m_engine->Backspace(state);
    } else {
        return;
    }
    if (!result.accepted)
        return;
    QPointer<MaskBox> self(this);
    if (result.textChanged)
        Text1()->setText(state.text); // Change, once, from Text1's notification
    if (self)
        Text1()->setCursorPosition(state.selStart);
}

// Characters composed by an input method arrive without key events; in a masked box each one is
// typed as if its key had been pressed, so that the mask and the host's keyPress still apply.
void MaskBox::typeCommitted(const QString &text)
{
    QPointer<MaskBox> self(this);
    for (const QChar c : text) {
        short keyAscii = short(c.unicode());
        emit keyPress(keyAscii);
        if (!self)
            return;
        if (keyAscii != 0)
            handleKeyPress(keyAscii);
    }
}

// Without a mask the text box takes composed characters itself, but only as the host's keyPress
// and CharCase leave them, as if each had been typed.
bool MaskBox::filterCommitted(QInputMethodEvent *event)
{
    const QString committed = event->commitString();
    if (committed.isEmpty())
        return false;
    QPointer<MaskBox> self(this);
    QString typed;
    typed.reserve(committed.size());
    for (const QChar c : committed) {
        short keyAscii = short(c.unicode());
        emit keyPress(keyAscii);
        if (!self)
            return true;
        if (keyAscii != 0)
            handleKeyPress(keyAscii);
        if (keyAscii != 0)
            typed.append(charOf(keyAscii));
    }
    if (typed != committed)
        event->setCommitString(typed, event->replacementStart(), event->replacementLength());
    return false;
}

bool MaskBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Text1() && event->type() == QEvent::InputMethod && m_engine->isEmpty()) {
        try {
            if (filterCommitted(static_cast<QInputMethodEvent *>(event)))
                return true;
        } catch (...) {
            return true;
        }
    }
    if (watched == Text1() && !m_engine->isEmpty()) {
        if (event->type() == QEvent::InputMethod) {
            try {
                typeCommitted(static_cast<QInputMethodEvent *>(event)->commitString());
            } catch (...) {
            }
            return true;
        }
        if (event->type() == QEvent::Drop && !m_normalisePending) {
            // A drop onto a box without the focus is never followed by leaving it: bring the
            // dropped text back to the mask once the line edit has taken it.
            m_normalisePending = true;
            QMetaObject::invokeMethod(
                this,
                [this] {
                    m_normalisePending = false;
                    if (!HasFocus() && UserMode()) {
                        try {
                            normalise();
                        } catch (...) {
                        }
                    }
                },
                Qt::QueuedConnection);
        }
    }
    return ControlFrame::eventFilter(watched, event);
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
        setText1(m_engine->FormatMaskValue(m_engine->ExtractMaskValue(Text1()->text(), m_charCase)));
}

// ---------------------------------------------------------------------------------------------
// Persistence and size

void MaskBox::InitProperties()
{
    initCommon();
    m_engine->ParseMask(QString());
    m_charCase = twAnyCase;
    m_promptInclude = true;
    UpdatingGuard guard(*this);
    setText1(QString());
}

void MaskBox::WriteProperties(PropertyBag &bag) const
{
    for (const QString &key : writeOrder()) {
        if (writeCommon(bag, key))
            continue;
        if (key == kMask)
            bag.WriteProperty(key, m_engine->mask(), QString());
        else if (key == kText)
            bag.WriteProperty(key, Text1()->text(), QString());
        else if (key == kCharCase)
            bag.WriteProperty(key, qint16(m_charCase), qint16(twAnyCase));
        else if (key == kPromptInclude)
            bag.WriteProperty(key, m_promptInclude, true);
    }
}

void MaskBox::ReadProperties(PropertyBag &bag)
{
    {
        // A trial load on a scratch control first, so that a bad value in the bag is refused
        // before this control changes or raises anything.
        MaskBox probe;
        probe.setUserMode(UserMode());
        PropertyBag copy = bag;
        probe.readAll(copy);
    }
    readAll(bag);
}

void MaskBox::readAll(const PropertyBag &bag)
{
    readCommon(bag, {QStringLiteral("BackColor"), QStringLiteral("Enabled"),
                     QStringLiteral("Font"), QStringLiteral("Locked"),
                     QStringLiteral("MouseIcon"), QStringLiteral("BorderStyle"),
                     QStringLiteral("ForeColor"), QStringLiteral("DisabledColor")});
    applyBorder();
    relayout();
    readCommon(bag, QStringLiteral("Alignment"));
    readCommon(bag, {QStringLiteral("OLEDragMode"), QStringLiteral("OLEDropMode"),
                     QStringLiteral("MouseIcon"), QStringLiteral("MousePointer"),
                     QStringLiteral("SelectTextOnFocus")});

    const QString mask = bagString(bag.ReadProperty(kMask, QString()));
    const QString blank = m_engine->ParseMask(mask);
    // No saved text comes back: a loaded box starts blank.
    setText1(UserMode() ? blank : mask);

    const int charCase = charCaseFrom(bag.ReadProperty(kCharCase, qint16(twAnyCase)));
    m_charCase = twCharCaseConstants(charCase);
    m_promptInclude = bagBool(bag.ReadProperty(kPromptInclude, true));
    readCommon(bag, {QStringLiteral("ToolTip"), QStringLiteral("Checked"),
                     QStringLiteral("CheckBox"), QStringLiteral("NullIfEmpty"),
                     QStringLiteral("EnterAsTab")});
}

} // namespace Tarnwell
