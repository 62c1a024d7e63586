#pragma once
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionFactory>

#include <QHash>
#include <QMetaProperty>
#include <QObject>
#include <QPointer>
#include <QVariant>

#include <tarnwell/error.h>
#include <tarnwell/olecolor.h>

#include <optional>


class QExtensionManager;

namespace Tarnwell {

// Designer's own property sheet of a control, with three changes:
// - every write is guarded: a value the control refuses (a Separator outside " /-.", an oversized
//   Mask...) leaves it as it was, is shown to the designer as the control's error message instead
//   of unwinding through Designer, and does not mark the property changed (so it is not saved);
// - the types Designer has no editor for are shown in one it has, and so saved in the .ui file
//   as that type: colours as QColor (system colours resolved against the control's palette),
//   date bounds as QDate (TimeBox: QTime), NumberBox's variant numbers as double, shorts as int;
// - what is not stored (Text, MaxDecimalPlaces, the value of the date, time and mask boxes) is
//   not shown, since a .ui file is a store and writing those back is refused.
// Everything else (the properties listed, their groups, reset) is Designer's.
class PropertySheet : public QObject, public QDesignerPropertySheetExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerPropertySheetExtension)

public:
    PropertySheet(QDesignerPropertySheetExtension *designerSheet, QObject *control, QObject *parent);

    int count() const override { return m_sheet->count(); }
    int indexOf(const QString &name) const override { return m_sheet->indexOf(name); }
    QString propertyName(int index) const override { return m_sheet->propertyName(index); }
    QString propertyGroup(int index) const override { return m_sheet->propertyGroup(index); }
    void setPropertyGroup(int index, const QString &group) override { m_sheet->setPropertyGroup(index, group); }
    bool hasReset(int index) const override { return m_sheet->hasReset(index); }
    bool reset(int index) override;
    bool isVisible(int index) const override;
    void setVisible(int index, bool visible) override { m_sheet->setVisible(index, visible); }
    bool isAttribute(int index) const override { return m_sheet->isAttribute(index); }
    void setAttribute(int index, bool attribute) override { m_sheet->setAttribute(index, attribute); }
    QVariant property(int index) const override;
    void setProperty(int index, const QVariant &value) override;
    bool isChanged(int index) const override { return m_sheet->isChanged(index); }
    void setChanged(int index, bool changed) override;
    bool isEnabled(int index) const override { return m_sheet->isEnabled(index); }

private:
    // How a property is shown to Designer.
    enum class Shown { AsIs, Hidden, Color, Date, Time, Number, Int };
    Shown shownAs(int index) const;
    QMetaProperty controlProperty(int index) const;
    QColor resolved(OleColor color) const;

    QDesignerPropertySheetExtension *m_sheet;
    QObject *m_control;
    int m_refused = -1; // the index of the write just refused
    // The colour each colour property held before its last write: Designer's undo writes back the
    // colour it showed, and a system colour is put back as itself, not as today's RGB of it.
    QHash<int, OleColor> m_colorBefore;
};

// Hands out a PropertySheet for each Tarnwell control, wrapped around the sheet Designer would
// have given it.
class PropertySheetFactory : public QExtensionFactory
{
    Q_OBJECT

public:
    explicit PropertySheetFactory(QExtensionManager *manager);
    static void registerIn(QExtensionManager *manager);

protected:
    QObject *createExtension(QObject *object, const QString &iid, QObject *parent) const override;

private:
    // Set while Designer's own sheet is being fetched: this factory then stands aside.
    mutable bool m_fetching = false;
};

// Shows a refused design-time write of `what` on `control` to the designer, in a message box
// opened once the write has returned; while a RefusalCatcher lives, it is kept there instead.
void reportRefusal(QObject *control, const QString &what, const Error &error);

// Catches the refusals of the writes made during its lifetime, for a caller that reports them
// itself (a property page, which stops applying at the first one).
class RefusalCatcher
{
public:
    RefusalCatcher();
    ~RefusalCatcher();
    RefusalCatcher(const RefusalCatcher &) = delete;
    RefusalCatcher &operator=(const RefusalCatcher &) = delete;

    // The first refusal caught, if any.
    const std::optional<Error> &error() const { return m_error; }

private:
    friend void reportRefusal(QObject *, const QString &, const Error &);
    std::optional<Error> m_error;
    RefusalCatcher *m_outer;
};

} // namespace Tarnwell
