#pragma once
#include <tarnwell/constants.h>
#include <tarnwell/controlframe.h>
#include <tarnwell/global.h>

#include <QString>
#include <QVariant>

#include <memory>

namespace Tarnwell {

class MaskEngine;
class PropertyBag;
class UserValue;

/// @brief A text box constrained by an input mask, such as `(###) ###-####`.
///
/// Placeholders take one typed character of a class ("#" digit, "\@" letter, "?" either, "&"
/// any); every other mask character is a literal that is shown and never typed over (`\` makes
/// the next mask character a literal). Unfilled positions show a space. Typing works in insert
/// style: characters after the caret move right, literals stay where the mask puts them, and an
/// edit that would put any character where it does not fit is refused as a whole.
///
/// Text that arrives around the keys (Shift+Insert, the text box's context menu, a drop) is taken
/// as it is and brought back to the mask when the focus leaves the control (at once when the box
/// does not have the focus); a character that does not fit its position then clears the text.
/// Composed characters from an input method are typed one by one, as keys would type them.
///
/// #CharCase takes only the three documented constants; any other value is refused with
/// Error(380) both as a property and in a property bag, so that typed characters and #Value never
/// disagree about the case of the same text.
///
/// @code
/// auto *phone = new Tarnwell::MaskBox(form);
/// phone->setMask(QStringLiteral("(###) ###-####"));
/// @endcode
class TARNWELL_EXPORT MaskBox : public ControlFrame
{
    Q_OBJECT
    Q_CLASSINFO("DefaultProperty", "Value")
    // Help strings of the host's property browser, one entry "Help:<property>" each.
    Q_CLASSINFO("Help:Mask", "Returns/sets the mask.")
    Q_CLASSINFO("Help:Value", "Returns/Sets the value.")
    Q_CLASSINFO("Help:Text", "Returns the text contained in the control.")
    Q_CLASSINFO("Help:CharCase",
                "Set/returns when the characteres will be transformed to Upper Case or Lower Case.")
    Q_CLASSINFO("Help:PromptInclude",
                "Specifies whether prompt characters are contained in the Value property value.")
    Q_CLASSINFO("Help:NullIfEmpty",
                "Set/returns whetrer the value properties returns Null or Empty if the data is invalid.")
    /** @name Value and text */
    ///@{
    /// The raw value, a QString of the characters typed into the placeholders (see Value()), or
    /// Null / Empty.
    Q_PROPERTY(QVariant Value READ Value WRITE setValue STORED false)
    ///@}
    /** @name Mask and case */
    ///@{
    /// Case applied to typed characters and to the value (default Tarnwell::twAnyCase).
    Q_PROPERTY(Tarnwell::twCharCaseConstants CharCase READ CharCase WRITE setCharCase)
    ///@}
    /** @name Value and text */
    ///@{
    /// The text as shown, literals and prompt spaces included (read-only).
    Q_PROPERTY(QString Text READ Text WRITE setText STORED false)
    ///@}
    /** @name Mask and case */
    ///@{
    /// The input mask: "#" digit, "\@" letter, "?" letter or digit, "&" any character, `\` the
    /// next character literally, anything else a literal (default empty: free text).
    Q_PROPERTY(QString Mask READ Mask WRITE setMask)
    /// #Value keeps the blanks of unfilled placeholders (default true).
    Q_PROPERTY(bool PromptInclude READ PromptInclude WRITE setPromptInclude)
    ///@}
    /** @name Qt model value */
    ///@{
    /// What Qt's item delegates and widget mappers read and write, as QLineEdit's text: #Value as
    /// a QString, a null string while there is none (USER property, notified by textChanged()).
    Q_PROPERTY(QString text READ text WRITE setModelText NOTIFY textChanged USER true
                   DESIGNABLE false STORED false)
    ///@}

public:
    /// A new control: no mask, run mode, the defaults of InitProperties().
    explicit MaskBox(QWidget *parent = nullptr);
    ~MaskBox() override;

    /// The help string of a property ("Help:<name>" class information), empty for none.
    static QString helpString(const char *propertyName);

    /** @name Value and text */
    ///@{
    /// The raw value: the characters of the input positions, #CharCase applied, with every space
    /// removed unless #PromptInclude. Null (#NullIfEmpty) or Empty while the check box is shown
    /// and unticked.
    QVariant Value() const;
    /// Formats the value (as a string) into the mask; a value that does not fit empties the text.
    /// Null empties it and unticks the check box; any other value ticks it. Error(387) at design
    /// time, Error(13) for a value with no text form; nothing happens when the host's
    /// can-property-change query refuses.
    void setValue(const QVariant &value);
    ///@}

    /** @name Mask and case */
    ///@{
    /// Reads #CharCase.
    twCharCaseConstants CharCase() const { return m_charCase; }
    /// Applies to characters typed from now on and to the text when the focus leaves.
    void setCharCase(twCharCaseConstants charCase);
    ///@}

    /** @name Value and text */
    ///@{
    /// The text as shown, literals and prompt spaces included; empty while the check box is shown
    /// and unticked.
    QString Text() const;
    /// Always refused: Error(382) at run time, Error(387) at design time.
    void setText(const QString &text);
    ///@}

    /** @name Mask and case */
    ///@{
    /// Reads #Mask.
    QString Mask() const;
    /// At run time the present value is re-formatted into the new mask (an empty text when its
    /// characters do not fit the new classes); at design time the box shows the mask itself.
    /// Raises Change. Error(6) for a mask of more than 32767 positions.
    void setMask(const QString &mask);

    /// Reads #PromptInclude.
    bool PromptInclude() const { return m_promptInclude; }
    /// Sets #PromptInclude.
    void setPromptInclude(bool on);
    ///@}

    /** @name Persistence */
    ///@{
    /// Gives the control the defaults of a new one.
    Q_INVOKABLE void InitProperties();
    /// Reads the control's settings from the property bag, key by key. A bad value in the bag
    /// throws Error(380) (Error(6) for an oversized mask) and leaves the control as it was.
    Q_INVOKABLE void ReadProperties(Tarnwell::PropertyBag &bag);
    /// Writes the control's settings into the property bag, key by key (nothing for a default).
    Q_INVOKABLE void WriteProperties(Tarnwell::PropertyBag &bag) const;
    ///@}

    /** @name Qt model value */
    ///@{
    /// Value as a string: a null string while there is none.
    QString text() const;
    /// Sets Value, a null string setting Null. Never throws: a text the mask cannot hold (too
    /// long, or a character where it does not fit) and every value Value refuses leave the
    /// control as it was and raise valueRefused.
    void setModelText(const QString &text);
    ///@}

signals:
    /// Once per change of text(): typed, pasted or set.
    void textChanged(const QString &text);

protected:
    /// @cond INTERNAL
    void handleKeyDown(short &keyCode, short &shift) override;
    void handleKeyPress(short &keyAscii) override;
    void onForeignText(const QString &text, const QString &previous) override;
    void onExitFocus() override;

    /// @endcond

private:
    void maskKeyPress(short keyAscii);
    void normalise();
    // Writes the text as a program does: the caret goes to the start.
    void setText1(const QString &text);

    std::unique_ptr<MaskEngine> m_engine;
    twCharCaseConstants m_charCase = twAnyCase;
    bool m_promptInclude = true;
    bool m_normalisePending = false;
    std::unique_ptr<UserValue> m_userValue; // last: see UserValue
};

} // namespace Tarnwell
