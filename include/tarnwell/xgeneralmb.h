#pragma once
#include <tarnwell/propertypage.h>

#include <memory>

namespace Tarnwell {

namespace Pages {
class PageBindings;
}

/// @brief The "General" page of a MaskBox: edits the first selected control's mask, case, alignment,
/// border and behaviour switches.
///
/// Filling reads, in this order: Enabled, BorderStyle, SelectTextOnFocus, Locked, Alignment, Mask,
/// CharCase, PromptInclude, CheckBox, Checked, NullIfEmpty. Applying writes CheckBox and Checked
/// first (so that the check box exists before its state is set), then Enabled, BorderStyle,
/// SelectTextOnFocus, Locked, Alignment, Mask, CharCase, PromptInclude, NullIfEmpty. An empty mask
/// text is written as it is and removes the mask. The page checks no values itself: a value the
/// control refuses throws out of ApplyChanges() with the control's error, after the writes before it.
///
/// Every edit marks the page changed, except the page's own filling. The widgets are laid out by
/// Qt layouts (two untitled group boxes, Frame1 for the mask and its rules, Frame2 for the
/// switches), so the page follows the font and the scale; the tab order is that of the page's
/// widget table, and the lists carry labels with access keys.
class TARNWELL_EXPORT xGeneralMB : public PropertyPage
{
    Q_OBJECT
public:
    /// The page, captioned "General", for a MaskBox.
    explicit xGeneralMB(QWidget *parent = nullptr);
    ~xGeneralMB() override;

protected:
    /// @cond INTERNAL
    void fill(QObject *control) override;
    void apply(QObject *control) override;

    /// @endcond

private:
    std::unique_ptr<Pages::PageBindings> m_fields;
};

} // namespace Tarnwell
