#pragma once
#include <tarnwell/constants.h>
#include <tarnwell/olecolor.h>

#include <QString>
#include <QVariant>

#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <vector>

namespace Tarnwell {

class ControlFrame;
class PropertyBag;

// The common properties every control persists, as one table: each key's bag name, default,
// the value written, the check of a value read (Error 380 for anything unreadable) and its
// assignment to the control. A control reads and writes them in its own key order.
enum class CommonKey {
    BackColor,
    Enabled,
    Font,
    Locked,
    MouseIcon,
    BorderStyle,
    ForeColor,
    DisabledColor,
    Alignment,
    OLEDragMode,
    OLEDropMode,
    MousePointer,
    SelectTextOnFocus,
    ToolTip,
    CheckBox,
    Checked,
    NullIfEmpty,
    EnterAsTab,
};

// Where a control's defaults of the common keys differ from one another (the rest are the same
// for every control: window colours, enabled, ambient font, 3-D border, no check box...).
struct CommonDefaults
{
    twAlignmentConstants alignment = twRightJustify;
    bool selectTextOnFocus = true;
    OleColor foreColor = OleColor::WindowText;
    OleColor disabledColor = OleColor::GrayText;
    bool checked = true;
};

// One common property: everything the setters, the bag, the property pages and Designer read.
struct CommonProperty
{
    CommonKey key;
    const QString &name; // the bag key, and the name it is reported changed under
    // The bag default: the value a new control holds.
    QVariant (*defaultValue)(const ControlFrame &frame);
    // The control's present value, as a bag stores it.
    QVariant (*read)(const ControlFrame &frame);
    // Whether the control holds the default, compared as it holds it (no variants).
    bool (*holdsDefault)(const ControlFrame &frame);
    // A value made ready to assign; Error(380) when it cannot be.
    QVariant (*check)(const QVariant &value);
    // Applies a checked value to the control and its inner widgets, reporting nothing.
    void (*assign)(ControlFrame &frame, const QVariant &checked);
};

class CommonProperties
{
public:
    static const CommonProperty &row(CommonKey key);
    static std::span<const CommonProperty> rows();

    static const QString &name(CommonKey key);
    // The default a bag is read and written with: the value of a new control.
    static QVariant defaultValue(const ControlFrame &frame, CommonKey key);
    // The control's present value, as it is written to a bag.
    static QVariant value(const ControlFrame &frame, CommonKey key);
    // A bag's value made ready to assign; Error(380) when it cannot be.
    static QVariant check(CommonKey key, const QVariant &bagValue);
    // Assigns a checked value to the inner widgets directly: nothing is reported changed.
    static void assign(ControlFrame &frame, CommonKey key, const QVariant &checked);

    static void write(const ControlFrame &frame, PropertyBag &bag, std::initializer_list<CommonKey> keys);
    // Every common value back to the control's default, and the default size (InitProperties);
    // only what differs is touched, so a new control pays nothing.
    static void initialise(ControlFrame &frame);

private:
    static const CommonProperty table[];
};

// A control's reading of a property bag, in the control's own key order, in two passes: every
// entry is read and checked first while nothing changes, so that a refused bag (Error 380, or
// 6 for an oversized mask) leaves the control exactly as it was; then the entries are assigned
// and the steps between them run, in order. A check may depend on the values checked before it.
class BagPlan
{
public:
    using Check = std::function<QVariant(const QVariant &bagValue)>;
    using Assign = std::function<void(const QVariant &checked)>;

    explicit BagPlan(ControlFrame &frame) : m_frame(frame) {}

    BagPlan &common(std::initializer_list<CommonKey> keys);
    BagPlan &key(const QString &name, const QVariant &defaultValue, Check check, Assign assign);
    BagPlan &step(std::function<void()> action);

    void read(const PropertyBag &bag);

private:
    struct Entry
    {
        QString name;        // empty for a step
        QVariant defaultValue;
        Check check;
        Assign assign;
        std::function<void()> action;
        QVariant checked;
    };

    ControlFrame &m_frame;
    std::vector<Entry> m_entries;
};

} // namespace Tarnwell
