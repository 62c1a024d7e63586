#pragma once
#include <tarnwell/propertypage.h>

#include <memory>

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace Tarnwell {

class DateBox;

namespace Pages {
class PageBindings;
}

/// @brief The "General" page of a DateBox: edits the first selected control's settings.
///
/// Choosing a format (cmbDateFormat, even the one already shown) rebuilds txtDisplayFormat from the
/// format's unfocused pattern with the current cmbSeparator text for every "/", and switches the
/// range boxes dtMinimum and dtMaximum (DateBox instances running live on the page) to month-first
/// entry for "Month/Day/Year", day-first otherwise. A separator alone rebuilds nothing, as the
/// control's own Separator leaves its display pattern until the format is set again. Those
/// handlers also run while the page fills, so the range boxes show the control's bounds in its
/// order; the fill then shows the control's own DisplayFormat over the rebuilt one. Only marking
/// the page changed waits for the user.
///
/// A click on chkUpDown (mouse or Space) gives chkInterceptArrowKeys the same state, as UpDown does
/// on the control; filling sets both boxes from the control, whatever their order.
///
/// Apply writes through the page's property writer in the documented order. A range box the user
/// emptied (no valid date: Null or Empty) writes nothing for that bound, so the control keeps it;
/// the page checks no value itself, and a value the control refuses throws its Tarnwell::Error out
/// of ApplyChanges after the writes before it.
///
/// Qt layouts place the widgets (fields in Frame1, check boxes in Frame2), so the page follows the
/// font and the screen scale; Tab visits the widgets in the order of the page's widget table and
/// every "&" caption is an access key. dtMinimum and dtMaximum are created in run mode: live editors,
/// not controls being designed.
class TARNWELL_EXPORT xGeneralDB : public PropertyPage
{
    Q_OBJECT
public:
    /// The page, captioned "General", for a DateBox.
    explicit xGeneralDB(QWidget *parent = nullptr);
    ~xGeneralDB() override;

protected:
    /// @cond INTERNAL
    void fill(QObject *control) override;
    void apply(QObject *control) override;

    /// @endcond

private:
    // The display pattern and the range boxes' order follow the chosen format.
    void followFormat();

    std::unique_ptr<Pages::PageBindings> m_fields;
    QComboBox *m_format = nullptr;
    QLineEdit *m_displayFormat = nullptr;
    QComboBox *m_separator = nullptr;
    DateBox *m_minimum = nullptr;
    DateBox *m_maximum = nullptr;
};

} // namespace Tarnwell
