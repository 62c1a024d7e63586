#pragma once
#include <tarnwell/global.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QVariant>
#include <QWidget>

#include <functional>

namespace Tarnwell {

// A design-time page that edits the settings of the controls a host has selected. The host sets
// SelectedControls, calls SelectionChanged() to fill the page, watches Changed to enable its Apply
// button and calls ApplyChanges() to write the page back. A page reads and writes the controls
// only through their public properties by name, so any host can show it: the demo, Qt Designer,
// an application's own dialog.
//
// The General pages work on the first selected control only. ApplyChanges() writes in the page's
// documented order and stops at the first value the control refuses, throwing that Tarnwell::Error:
// what was written before it stays written and the page stays changed, so that the user can correct
// the value and apply again.
class TARNWELL_EXPORT PropertyPage : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption CONSTANT)
    Q_PROPERTY(bool Changed READ Changed WRITE setChanged NOTIFY changedChanged)
public:
    // How a page writes one property: by default QObject::setProperty, a Tarnwell::Error thrown by
    // the control passing through and a value the property cannot take at all raising "Type
    // mismatch". A host that records changes elsewhere (a form editor's undo stack) installs its own.
    using PropertyWriter = std::function<void(QObject *control, const char *name, const QVariant &value)>;

    ~PropertyPage() override;

    QString Caption() const { return m_caption; }

    QList<QObject *> SelectedControls() const;
    void setSelectedControls(const QList<QObject *> &controls);

    bool Changed() const { return m_changed; }
    void setChanged(bool changed);

    void setPropertyWriter(PropertyWriter writer);

    // Fills the page from the first selected control and marks it unchanged. Nothing happens
    // without a selection.
    Q_INVOKABLE void SelectionChanged();
    // Writes the page to the first selected control and, when every write was taken, marks the
    // page unchanged. Throws the control's Tarnwell::Error on a refused value.
    Q_INVOKABLE void ApplyChanges();

signals:
    void changedChanged(bool changed);

protected:
    PropertyPage(const QString &caption, QWidget *parent);

    // The page's own reading and writing, in its documented orders. `control` is never null.
    virtual void fill(QObject *control) = 0;
    virtual void apply(QObject *control) = 0;

    // Marks the page changed, except while it is being filled.
    void markChanged();
    bool filling() const { return m_filling; }

    static QVariant read(const QObject *control, const char *name);
    void write(QObject *control, const char *name, const QVariant &value) const;

private:
    QString m_caption;
    QList<QPointer<QObject>> m_selected;
    PropertyWriter m_writer;
    bool m_changed = false;
    bool m_filling = false;
};

} // namespace Tarnwell
