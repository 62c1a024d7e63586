#include "shared/commonproperties.h"

#include <tarnwell/controlframe.h>
#include <tarnwell/error.h>
#include <tarnwell/propertybag.h>

#include "shared/bagkeys.h"
#include "shared/bagvalues.h"
#include "shared/controlframe_p.h"
#include "shared/frameeditor.h"
#include "shared/mousepointer.h"
#include "shared/twips.h"

#include <QApplication>

#include <cstdint>

namespace Tarnwell {

namespace {

using Applied = FrameEditor::Applied;
using K = CommonKey;

QVariant colorValue(OleColor color)
{
    return QVariant(qint32(color.value()));
}

QVariant smallInt(int value)
{
    return QVariant(qint16(value));
}

int ranged(const QVariant &value, int lowest, int highest)
{
    return int(BagValue::toInt(value, lowest, highest));
}

QVariant toColor(const QVariant &v) { return QVariant::fromValue(BagValue::toColor(v)); }
QVariant toBool(const QVariant &v) { return BagValue::toBool(v); }

// The frame's private part: the rows set what the frame stores and call its appliers.
ControlFramePrivate &privateOf(ControlFrame &f)
{
    return *ControlFramePrivate::get(&f);
}

const ControlFramePrivate &privateOf(const ControlFrame &f)
{
    return *ControlFramePrivate::get(&f);
}

const CommonDefaults &defaultsOf(const ControlFrame &f)
{
    return *privateOf(f).commonDefaults;
}

} // namespace

// The rows, in the order of CommonKey (row() relies on it). Each row's default is what a new
// control holds; `holdsDefault` tells it cheaply, comparing as the control holds the value.
const CommonProperty CommonProperties::table[] = {
    {K::BackColor, BagKey::BackColor,
     [](const ControlFrame &) { return colorValue(OleColor::WindowBackground); },
     [](const ControlFrame &f) { return colorValue(f.BackColor()); },
     [](const ControlFrame &f) { return f.BackColor() == OleColor::WindowBackground; },
     toColor,
     [](ControlFrame &f, const QVariant &v) {
         privateOf(f).backColor = qvariant_cast<OleColor>(v);
         privateOf(f).applyBorder();
     }},
    {K::Enabled, BagKey::Enabled,
     [](const ControlFrame &) { return QVariant(true); },
     [](const ControlFrame &f) { return QVariant(f.Enabled()); },
     [](const ControlFrame &f) { return f.Enabled(); },
     toBool,
     [](ControlFrame &f, const QVariant &v) {
         f.QFrame::setEnabled(v.toBool()); // the colours follow in changeEvent()
     }},
    {K::Font, BagKey::Font,
     [](const ControlFrame &f) { return QVariant(privateOf(f).ambientFont()); },
     [](const ControlFrame &f) { return QVariant(f.Font()); },
     [](const ControlFrame &f) { return !f.testAttribute(Qt::WA_SetFont); },
     [](const QVariant &v) { return QVariant(BagValue::toFont(v)); },
     [](ControlFrame &f, const QVariant &v) {
         f.QFrame::setFont(qvariant_cast<QFont>(v)); // the inner widgets take it from their parent
     }},
    {K::Locked, BagKey::Locked,
     [](const ControlFrame &) { return QVariant(false); },
     [](const ControlFrame &f) { return QVariant(f.Locked()); },
     [](const ControlFrame &f) { return !f.Locked(); },
     toBool,
     [](ControlFrame &f, const QVariant &v) { privateOf(f).editor->setLocked(v.toBool()); }},
    {K::MouseIcon, BagKey::MouseIcon,
     [](const ControlFrame &) { return QVariant(); }, // no picture
     [](const ControlFrame &f) {
         return f.MouseIcon().isNull() ? QVariant() : QVariant(f.MouseIcon());
     },
     [](const ControlFrame &f) { return f.MouseIcon().isNull(); },
     [](const QVariant &v) { return QVariant(BagValue::toPicture(v)); },
     [](ControlFrame &f, const QVariant &v) {
         privateOf(f).mouseIcon = qvariant_cast<QPixmap>(v);
         privateOf(f).editor->apply(Applied::Cursor);
     }},
    {K::BorderStyle, BagKey::BorderStyle,
     [](const ControlFrame &) { return smallInt(twFixed3D); },
     [](const ControlFrame &f) { return smallInt(f.BorderStyle()); },
     [](const ControlFrame &f) { return f.BorderStyle() == twFixed3D; },
     [](const QVariant &v) { return QVariant(ranged(v, twNone, twFixed3D)); },
     [](ControlFrame &f, const QVariant &v) {
         privateOf(f).borderStyle = twBorderStyleConstants(v.toInt());
         privateOf(f).applyBorder();
     }},
    {K::ForeColor, BagKey::ForeColor,
     [](const ControlFrame &f) { return colorValue(defaultsOf(f).foreColor); },
     [](const ControlFrame &f) { return colorValue(f.ForeColor()); },
     [](const ControlFrame &f) { return f.ForeColor() == defaultsOf(f).foreColor; },
     toColor,
     [](ControlFrame &f, const QVariant &v) {
         privateOf(f).foreColor = qvariant_cast<OleColor>(v);
         privateOf(f).editor->apply(Applied::Colors);
     }},
    {K::DisabledColor, BagKey::DisabledColor,
     [](const ControlFrame &f) { return colorValue(defaultsOf(f).disabledColor); },
     [](const ControlFrame &f) { return colorValue(f.DisabledColor()); },
     [](const ControlFrame &f) { return f.DisabledColor() == defaultsOf(f).disabledColor; },
     toColor,
     [](ControlFrame &f, const QVariant &v) {
         privateOf(f).disabledColor = qvariant_cast<OleColor>(v);
         privateOf(f).editor->apply(Applied::Colors);
     }},
    {K::Alignment, BagKey::Alignment,
     [](const ControlFrame &f) { return smallInt(defaultsOf(f).alignment); },
     [](const ControlFrame &f) { return smallInt(f.Alignment()); },
     [](const ControlFrame &f) { return f.Alignment() == defaultsOf(f).alignment; },
     [](const QVariant &v) { return QVariant(ranged(v, twLeftJustify, twCenter)); },
     [](ControlFrame &f, const QVariant &v) {
         ControlFramePrivate::UpdatingGuard updating(f);
         privateOf(f).editor->setAlignment(twAlignmentConstants(v.toInt()));
     }},
    {K::OLEDragMode, BagKey::OLEDragMode,
     [](const ControlFrame &) { return smallInt(ControlFrame::OLEDragManual); },
     [](const ControlFrame &f) { return smallInt(f.OLEDragMode()); },
     [](const ControlFrame &f) { return f.OLEDragMode() == ControlFrame::OLEDragManual; },
     [](const QVariant &v) {
         return QVariant(ranged(v, ControlFrame::OLEDragManual, ControlFrame::OLEDragAutomatic));
     },
     [](ControlFrame &f, const QVariant &v) {
         privateOf(f).oleDragMode = v.toInt();
         privateOf(f).editor->apply(Applied::DragMode);
     }},
    {K::OLEDropMode, BagKey::OLEDropMode,
     [](const ControlFrame &) { return smallInt(ControlFrame::OLEDropNone); },
     [](const ControlFrame &f) { return smallInt(f.OLEDropMode()); },
     [](const ControlFrame &f) { return f.OLEDropMode() == ControlFrame::OLEDropNone; },
     [](const QVariant &v) {
         return QVariant(ranged(v, ControlFrame::OLEDropNone, ControlFrame::OLEDropAutomatic));
     },
     [](ControlFrame &f, const QVariant &v) {
         privateOf(f).oleDropMode = v.toInt();
         privateOf(f).editor->apply(Applied::DropMode);
     }},
    {K::MousePointer, BagKey::MousePointer,
     [](const ControlFrame &) { return smallInt(ControlFrame::MousePointerDefault); },
     [](const ControlFrame &f) { return smallInt(f.MousePointer()); },
     [](const ControlFrame &f) { return f.MousePointer() == ControlFrame::MousePointerDefault; },
     [](const QVariant &v) {
         const int pointer = ranged(v, INT32_MIN, INT32_MAX);
         if (!MousePointer::isValid(pointer))
             throw Error(Error::InvalidPropertyValue);
         return QVariant(pointer);
     },
     [](ControlFrame &f, const QVariant &v) {
         privateOf(f).mousePointer = v.toInt();
         privateOf(f).editor->apply(Applied::Cursor);
     }},
    {K::SelectTextOnFocus, BagKey::SelectTextOnFocus,
     [](const ControlFrame &f) { return QVariant(defaultsOf(f).selectTextOnFocus); },
     [](const ControlFrame &f) { return QVariant(f.SelectTextOnFocus()); },
     [](const ControlFrame &f) { return f.SelectTextOnFocus() == defaultsOf(f).selectTextOnFocus; },
     toBool,
     [](ControlFrame &f, const QVariant &v) { privateOf(f).selectTextOnFocus = v.toBool(); }},
    {K::ToolTip, BagKey::ToolTip,
     [](const ControlFrame &) { return QVariant(QString()); },
     [](const ControlFrame &f) { return QVariant(f.ToolTip()); },
     [](const ControlFrame &f) { return f.ToolTip().isEmpty(); },
     [](const QVariant &v) { return QVariant(BagValue::toString(v)); },
     [](ControlFrame &f, const QVariant &v) {
         f.QFrame::setToolTip(v.toString()); // the inner widgets follow in changeEvent()
     }},
    {K::CheckBox, BagKey::CheckBox,
     [](const ControlFrame &) { return QVariant(false); },
     [](const ControlFrame &f) { return QVariant(f.CheckBox()); },
     [](const ControlFrame &f) { return !f.CheckBox(); },
     toBool,
     [](ControlFrame &f, const QVariant &v) {
         privateOf(f).checkBox = v.toBool();
         privateOf(f).editor->apply(Applied::CheckBox);
         privateOf(f).relayout();
         privateOf(f).updateValueControls();
     }},
    {K::Checked, BagKey::Checked,
     [](const ControlFrame &f) { return QVariant(defaultsOf(f).checked); },
     [](const ControlFrame &f) { return QVariant(f.Checked()); },
     [](const ControlFrame &f) { return f.Checked() == defaultsOf(f).checked; },
     toBool,
     [](ControlFrame &f, const QVariant &v) {
         privateOf(f).editor->setChecked(v.toBool()); // the click logic, as the host's check box runs it
     }},
    {K::NullIfEmpty, BagKey::NullIfEmpty,
     [](const ControlFrame &) { return QVariant(false); },
     [](const ControlFrame &f) { return QVariant(f.NullIfEmpty()); },
     [](const ControlFrame &f) { return !f.NullIfEmpty(); },
     toBool,
     [](ControlFrame &f, const QVariant &v) { privateOf(f).nullIfEmpty = v.toBool(); }},
    {K::EnterAsTab, BagKey::EnterAsTab,
     [](const ControlFrame &) { return QVariant(false); },
     [](const ControlFrame &f) { return QVariant(f.EnterAsTab()); },
     [](const ControlFrame &f) { return !f.EnterAsTab(); },
     toBool,
     [](ControlFrame &f, const QVariant &v) {
         privateOf(f).enterAsTab = v.toBool();
         privateOf(f).editor->apply(Applied::EnterAsTab);
     }},
};

const CommonProperty &CommonProperties::row(CommonKey key)
{
    // The table is in key order; a wrong order is caught here on first use in every build.
    const CommonProperty &found = table[int(key)];
    Q_ASSERT(found.key == key);
    return found;
}

std::span<const CommonProperty> CommonProperties::rows()
{
    return table;
}

const QString &CommonProperties::name(CommonKey key)
{
    return row(key).name;
}

QVariant CommonProperties::defaultValue(const ControlFrame &frame, CommonKey key)
{
    return row(key).defaultValue(frame);
}

QVariant CommonProperties::value(const ControlFrame &frame, CommonKey key)
{
    return row(key).read(frame);
}

QVariant CommonProperties::check(CommonKey key, const QVariant &v)
{
    return row(key).check(v);
}

void CommonProperties::assign(ControlFrame &frame, CommonKey key, const QVariant &checked)
{
    row(key).assign(frame, checked);
}

void CommonProperties::write(const ControlFrame &frame, PropertyBag &bag,
                             std::initializer_list<CommonKey> keys)
{
    for (CommonKey key : keys)
        bag.WriteProperty(name(key), value(frame, key), defaultValue(frame, key));
}

void CommonProperties::initialise(ControlFrame &frame)
{
    const QSize size(Twips::toPixels(Twips::DefaultWidth), Twips::toPixels(Twips::DefaultHeight));
    if (frame.size() != size)
        frame.resize(size);
    for (const CommonProperty &property : table) {
        if (property.holdsDefault(frame))
            continue;
        if (property.key == CommonKey::Font)
            frame.QFrame::setFont(QFont()); // the ambient font: the parent's, now and later
        else
            property.assign(frame, property.check(property.defaultValue(frame)));
    }
}

// ---------------------------------------------------------------------------------------------

BagPlan &BagPlan::common(std::initializer_list<CommonKey> keys)
{
    for (CommonKey k : keys) {
        ControlFrame *frame = &m_frame;
        m_entries.push_back(Entry{CommonProperties::name(k), CommonProperties::defaultValue(m_frame, k),
                                  [k](const QVariant &v) { return CommonProperties::check(k, v); },
                                  [frame, k](const QVariant &v) { CommonProperties::assign(*frame, k, v); },
                                  {}, {}});
    }
    return *this;
}

BagPlan &BagPlan::key(const QString &name, const QVariant &defaultValue, Check check, Assign assign)
{
    m_entries.push_back(Entry{name, defaultValue, std::move(check), std::move(assign), {}, {}});
    return *this;
}

BagPlan &BagPlan::step(std::function<void()> action)
{
    m_entries.push_back(Entry{QString(), QVariant(), {}, {}, std::move(action), {}});
    return *this;
}

void BagPlan::read(const PropertyBag &bag)
{
    for (Entry &e : m_entries) {
        if (!e.name.isEmpty())
            e.checked = e.check(bag.ReadProperty(e.name, e.defaultValue));
    }
    for (Entry &e : m_entries) {
        if (e.action)
            e.action();
        else
            e.assign(e.checked);
    }
}

} // namespace Tarnwell
