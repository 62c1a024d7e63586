#pragma once
#include <tarnwell/propertypage.h>

#include <memory>

class QComboBox;

namespace Tarnwell {

class TimeBox;

namespace Pages {
class PageBindings;
}

/// @brief The "General" page of a TimeBox: edits the first selected control's settings.
///
/// The range boxes tmMinimum and tmMaximum are TimeBox instances running live on the page, with
/// the up-down button, the arrow keys and select-on-focus on; they always use the format chosen in
/// cmbTimeFormat (tmMaximum first, then tmMinimum), also while the page fills, so that they show
/// the control's bounds in its format, and again after every apply. Only marking the page changed
/// waits for the user. Unlike the DateBox page, chkUpDown does not drive chkInterceptArrowKeys.
///
/// Apply writes through the page's property writer in the documented order. A range box the user
/// emptied (no valid time: Null or Empty) writes nothing for that bound, so the control keeps it;
/// the page checks no value itself: a separator the control refuses (anything but ":" or ".")
/// throws its Tarnwell::Error out of ApplyChanges after the writes before it.
///
/// Qt layouts place the widgets (fields in Frame1, check boxes in Frame2), so the page follows the
/// font and the screen scale; Tab visits the widgets in the order of the page's widget table and
/// every "&" caption is an access key. tmMinimum and tmMaximum are created in run mode: live editors,
/// not controls being designed.
class TARNWELL_EXPORT xGeneralTB : public PropertyPage
{
    Q_OBJECT
public:
    /// The page, captioned "General", for a TimeBox.
    explicit xGeneralTB(QWidget *parent = nullptr);
    ~xGeneralTB() override;

protected:
    /// @cond INTERNAL
    void fill(QObject *control) override;
    void apply(QObject *control) override;

    /// @endcond

private:
    // The range boxes take the chosen format.
    void followFormat();

    std::unique_ptr<Pages::PageBindings> m_fields;
    QComboBox *m_format = nullptr;
    TimeBox *m_minimum = nullptr;
    TimeBox *m_maximum = nullptr;
};

} // namespace Tarnwell
