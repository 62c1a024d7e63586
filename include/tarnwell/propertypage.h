#pragma once
#include <tarnwell/global.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QVariant>
#include <QWidget>

#include <functional>

namespace Tarnwell {

/// @brief A design-time page that edits the settings of the controls a host has selected.
///
/// The host sets
/// SelectedControls, calls SelectionChanged() to fill the page, watches Changed to enable its Apply
/// button and calls ApplyChanges() to write the page back. A page reads and writes the controls
/// only through their public properties by name, so any host can show it: the demo, Qt Designer,
/// an application's own dialog.
///
/// The General pages work on the first selected control only. ApplyChanges() writes in the page's
/// documented order and stops at the first value the control refuses, throwing that Tarnwell::Error:
/// what was written before it stays written and the page stays changed, so that the user can correct
/// the value and apply again.
class TARNWELL_EXPORT PropertyPage : public QWidget
{
    Q_OBJECT
    /// The page's tab caption: "General" or "About".
    Q_PROPERTY(QString Caption READ Caption CONSTANT)
    /// The page holds edits not yet applied (notified by changedChanged()).
    Q_PROPERTY(bool Changed READ Changed WRITE setChanged NOTIFY changedChanged)
public:
    /// How a page writes one property: by default QObject::setProperty, a Tarnwell::Error thrown by
    /// the control passing through and a value the property cannot take at all raising "Type
    /// mismatch". A host that records changes elsewhere (a form editor's undo stack) installs its own.
    using PropertyWriter = std::function<void(QObject *control, const char *name, const QVariant &value)>;

    ~PropertyPage() override;

    /// Reads #Caption.
    QString Caption() const { return m_caption; }

    /// The controls the page edits (the first one, for the General pages); controls deleted
    /// meanwhile are left out.
    QList<QObject *> SelectedControls() const;
    /// Sets the selection; call SelectionChanged() to fill the page from it.
    void setSelectedControls(const QList<QObject *> &controls);

    /// Reads #Changed.
    bool Changed() const { return m_changed; }
    /// Sets #Changed; changedChanged() follows when it moves.
    void setChanged(bool changed);

    /// Writes through `writer` from now on (null: QObject::setProperty, see PropertyWriter).
    void setPropertyWriter(PropertyWriter writer);

    /// Fills the page from the first selected control and marks it unchanged. Nothing happens
    /// without a selection.
    Q_INVOKABLE void SelectionChanged();
    /// Writes the page to the first selected control and, when every write was taken, marks the
    /// page unchanged. Throws the control's Tarnwell::Error on a refused value.
    Q_INVOKABLE void ApplyChanges();

signals:
    /// #Changed turned on or off.
    void changedChanged(bool changed);

protected:
    /// A page with the tab caption `caption`.
    PropertyPage(const QString &caption, QWidget *parent);

    /// The page's own reading, in its documented order. `control` is never null.
    virtual void fill(QObject *control) = 0;
    /// The page's own writing, in its documented order, through write(). `control` is never null.
    virtual void apply(QObject *control) = 0;

    /// Marks the page changed, except while it is being filled.
    void markChanged();
    /// The page is being filled (SelectionChanged() is running fill()).
    bool filling() const { return m_filling; }

    /// Reads the property `name` of `control`.
    static QVariant read(const QObject *control, const char *name);
    /// Writes the property `name` of `control` through the page's PropertyWriter.
    void write(QObject *control, const char *name, const QVariant &value) const;

private:
    QString m_caption;
    QList<QPointer<QObject>> m_selected;
    PropertyWriter m_writer;
    bool m_changed = false;
    bool m_filling = false;
};

} // namespace Tarnwell
