#pragma once
#include <tarnwell/propertypage.h>

#include <QDialog>
#include <QList>
#include <QPointer>

class QDialogButtonBox;
class QPushButton;
class QTabWidget;

namespace Tarnwell {

/// @brief The dialog a host shows for the controls it has selected: the General page of the
/// first control's class (none for a control that is not one of the library's four) beside the
/// About page, with OK, Cancel and Apply.
///
/// Apply is enabled while a page has unapplied changes and applies the changed pages; OK applies
/// them and closes; Cancel closes and leaves the controls as they are. A value a control refuses
/// is reported in a message box, and the dialog stays open on that page, still changed, so that
/// the user can correct it and apply again.
class TARNWELL_EXPORT PropertyDialog : public QDialog
{
    Q_OBJECT
public:
    /// One control is a selection of one: PropertyDialog({control}, parent).
    explicit PropertyDialog(const QList<QObject *> &controls, QWidget *parent = nullptr);
    ~PropertyDialog() override;

    /// The General page for `control`'s class, or null when there is none.
    static PropertyPage *createGeneralPage(const QObject *control, QWidget *parent = nullptr);

    /// The controls the dialog was opened on (those deleted meanwhile left out).
    QList<QObject *> SelectedControls() const;

    /// Adds a page after the others (the dialog takes it), shows it the selection and fills it.
    void addPage(PropertyPage *page);
    /// The pages, in their tab order.
    QList<PropertyPage *> pages() const;
    /// The page with `caption`, or null.
    PropertyPage *page(const QString &caption) const;
    /// Shows the page with `caption`; false when there is none.
    bool setCurrentPage(const QString &caption);

    /// Every page writes through `writer` from now on (null: the controls' own properties).
    void setPropertyWriter(PropertyPage::PropertyWriter writer);

    /// The Apply button, enabled while a page has unapplied changes.
    QPushButton *applyButton() const;

    /// Applies the changed pages in their order. On a refused value the message is shown, that
    /// page comes to the front, and the result is false.
    bool applyChanges();

public slots:
    /// OK: applies the changed pages and closes, unless a value was refused.
    void accept() override;

private:
    void updateApply();
    void reportError(PropertyPage *page, const QString &message);

    QList<QPointer<QObject>> m_controls;
    QTabWidget *m_tabs;
    QDialogButtonBox *m_buttons;
    QList<PropertyPage *> m_pages;
    PropertyPage::PropertyWriter m_writer;
};

} // namespace Tarnwell
