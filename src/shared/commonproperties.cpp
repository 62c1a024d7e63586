#include "shared/commonproperties.h"

#include <tarnwell/controlframe.h>
#include <tarnwell/error.h>
#include <tarnwell/propertybag.h>

#include "shared/bagkeys.h"
#include "shared/bagvalues.h"
#include "shared/frameeditor.h"
#include "shared/mousepointer.h"
#include "shared/twips.h"

#include <QApplication>

#include <cstdint>

namespace Tarnwell {

namespace {

using Applied = FrameEditor::Applied;

constexpr CommonKey AllKeys[] = {
    CommonKey::BackColor,     CommonKey::Enabled,          CommonKey::Font,
    CommonKey::Locked,        CommonKey::MouseIcon,        CommonKey::BorderStyle,
    CommonKey::ForeColor,     CommonKey::DisabledColor,    CommonKey::Alignment,
    CommonKey::OLEDragMode,   CommonKey::OLEDropMode,      CommonKey::MousePointer,
    CommonKey::SelectTextOnFocus, CommonKey::ToolTip,      CommonKey::CheckBox,
    CommonKey::Checked,       CommonKey::NullIfEmpty,      CommonKey::EnterAsTab,
};

QVariant colorValue(OleColor color)
{
    return QVariant(qint32(color.value()));
}

int ranged(const QVariant &value, int lowest, int highest)
{
    return int(BagValue::toInt(value, lowest, highest));
}

} // namespace

const QString &CommonProperties::name(CommonKey key)
{
    switch (key) {
    case CommonKey::BackColor: return BagKey::BackColor;
    case CommonKey::Enabled: return BagKey::Enabled;
    case CommonKey::Font: return BagKey::Font;
    case CommonKey::Locked: return BagKey::Locked;
    case CommonKey::MouseIcon: return BagKey::MouseIcon;
    case CommonKey::BorderStyle: return BagKey::BorderStyle;
    case CommonKey::ForeColor: return BagKey::ForeColor;
    case CommonKey::DisabledColor: return BagKey::DisabledColor;
    case CommonKey::Alignment: return BagKey::Alignment;
    case CommonKey::OLEDragMode: return BagKey::OLEDragMode;
    case CommonKey::OLEDropMode: return BagKey::OLEDropMode;
    case CommonKey::MousePointer: return BagKey::MousePointer;
    case CommonKey::SelectTextOnFocus: return BagKey::SelectTextOnFocus;
    case CommonKey::ToolTip: return BagKey::ToolTip;
    case CommonKey::CheckBox: return BagKey::CheckBox;
    case CommonKey::Checked: return BagKey::Checked;
    case CommonKey::NullIfEmpty: return BagKey::NullIfEmpty;
    case CommonKey::EnterAsTab: return BagKey::EnterAsTab;
    }
    return BagKey::Value; // not reached: every key is named above
}

QVariant CommonProperties::defaultValue(const ControlFrame &frame, CommonKey key)
{
    const CommonDefaults &d = frame.commonDefaults();
    switch (key) {
    case CommonKey::BackColor: return colorValue(OleColor::WindowBackground);
    case CommonKey::ForeColor: return colorValue(d.foreColor);
    case CommonKey::DisabledColor: return colorValue(d.disabledColor);
    case CommonKey::Font: return frame.ambientFont();
    case CommonKey::BorderStyle: return QVariant(qint16(twFixed3D));
    case CommonKey::Alignment: return QVariant(qint16(d.alignment));
    case CommonKey::OLEDragMode:
    case CommonKey::OLEDropMode:
    case CommonKey::MousePointer: return QVariant(qint16(0));
    case CommonKey::SelectTextOnFocus: return d.selectTextOnFocus;
    case CommonKey::Checked: return d.checked;
    case CommonKey::Enabled: return true;
    case CommonKey::Locked:
    case CommonKey::CheckBox:
    case CommonKey::NullIfEmpty:
    case CommonKey::EnterAsTab: return false;
    case CommonKey::ToolTip: return QString();
    case CommonKey::MouseIcon: return QVariant(); // no picture
    }
    return QVariant();
}

QVariant CommonProperties::value(const ControlFrame &frame, CommonKey key)
{
    switch (key) {
    case CommonKey::BackColor: return colorValue(frame.BackColor());
    case CommonKey::ForeColor: return colorValue(frame.ForeColor());
    case CommonKey::DisabledColor: return colorValue(frame.DisabledColor());
    case CommonKey::Enabled: return frame.Enabled();
    case CommonKey::Font: return frame.Font();
    case CommonKey::Locked: return frame.Locked();
    case CommonKey::MouseIcon:
        return frame.MouseIcon().isNull() ? QVariant() : QVariant(frame.MouseIcon());
    case CommonKey::BorderStyle: return QVariant(qint16(frame.BorderStyle()));
    case CommonKey::Alignment: return QVariant(qint16(frame.Alignment()));
    case CommonKey::OLEDragMode: return QVariant(qint16(frame.OLEDragMode()));
    case CommonKey::OLEDropMode: return QVariant(qint16(frame.OLEDropMode()));
    case CommonKey::MousePointer: return QVariant(qint16(frame.MousePointer()));
    case CommonKey::SelectTextOnFocus: return frame.SelectTextOnFocus();
    case CommonKey::ToolTip: return frame.ToolTip();
    case CommonKey::CheckBox: return frame.CheckBox();
    case CommonKey::Checked: return frame.Checked();
    case CommonKey::NullIfEmpty: return frame.NullIfEmpty();
    case CommonKey::EnterAsTab: return frame.EnterAsTab();
    }
    return QVariant();
}

QVariant CommonProperties::check(CommonKey key, const QVariant &v)
{
    switch (key) {
    case CommonKey::BackColor:
    case CommonKey::ForeColor:
    case CommonKey::DisabledColor: return QVariant::fromValue(BagValue::toColor(v));
    case CommonKey::Font: return BagValue::toFont(v);
    case CommonKey::MouseIcon: return BagValue::toPicture(v);
    case CommonKey::BorderStyle: return ranged(v, twNone, twFixed3D);
    case CommonKey::Alignment: return ranged(v, twLeftJustify, twCenter);
    case CommonKey::OLEDragMode:
        return ranged(v, ControlFrame::OLEDragManual, ControlFrame::OLEDragAutomatic);
    case CommonKey::OLEDropMode:
        return ranged(v, ControlFrame::OLEDropNone, ControlFrame::OLEDropAutomatic);
    case CommonKey::MousePointer: {
        const int pointer = ranged(v, INT32_MIN, INT32_MAX);
        if (!MousePointer::isValid(pointer))
            throw Error(Error::InvalidPropertyValue);
        return pointer;
    }
    case CommonKey::ToolTip: return BagValue::toString(v);
    case CommonKey::Enabled:
    case CommonKey::Locked:
    case CommonKey::SelectTextOnFocus:
    case CommonKey::CheckBox:
    case CommonKey::Checked:
    case CommonKey::NullIfEmpty:
    case CommonKey::EnterAsTab: return BagValue::toBool(v);
    }
    return v;
}

void CommonProperties::assign(ControlFrame &f, CommonKey key, const QVariant &v)
{
    FrameEditor &editor = *f.m_editor;
    switch (key) {
    case CommonKey::BackColor:
        f.m_backColor = qvariant_cast<OleColor>(v);
        f.applyBorder();
        break;
    case CommonKey::ForeColor:
        f.m_foreColor = qvariant_cast<OleColor>(v);
        editor.apply(Applied::Colors);
        break;
    case CommonKey::DisabledColor:
        f.m_disabledColor = qvariant_cast<OleColor>(v);
        editor.apply(Applied::Colors);
        break;
    case CommonKey::Enabled:
        f.QFrame::setEnabled(v.toBool()); // the colours follow in changeEvent()
        break;
    case CommonKey::Font:
        f.QFrame::setFont(qvariant_cast<QFont>(v));
        break;
    case CommonKey::Locked:
        editor.setLocked(v.toBool());
        break;
    case CommonKey::MouseIcon:
        f.m_mouseIcon = qvariant_cast<QPixmap>(v);
        editor.apply(Applied::Cursor);
        break;
    case CommonKey::BorderStyle:
        f.m_borderStyle = twBorderStyleConstants(v.toInt());
        f.applyBorder();
        break;
    case CommonKey::Alignment: {
        ControlFrame::UpdatingGuard updating(f);
        editor.setAlignment(twAlignmentConstants(v.toInt()));
        break;
    }
    case CommonKey::OLEDragMode:
        f.m_oleDragMode = v.toInt();
        editor.apply(Applied::DragMode);
        break;
    case CommonKey::OLEDropMode:
        f.m_oleDropMode = v.toInt();
        editor.apply(Applied::DropMode);
        break;
    case CommonKey::MousePointer:
        f.m_mousePointer = v.toInt();
        editor.apply(Applied::Cursor);
        break;
    case CommonKey::SelectTextOnFocus:
        f.m_selectTextOnFocus = v.toBool();
        break;
    case CommonKey::ToolTip:
        f.QFrame::setToolTip(v.toString()); // the inner widgets follow in changeEvent()
        break;
    case CommonKey::CheckBox:
        f.m_checkBox = v.toBool();
        editor.apply(Applied::CheckBox);
        f.relayout();
        f.updateValueControls();
        break;
    case CommonKey::Checked:
        editor.setChecked(v.toBool()); // the click logic, as the host's check box runs it
        break;
    case CommonKey::NullIfEmpty:
        f.m_nullIfEmpty = v.toBool();
        break;
    case CommonKey::EnterAsTab:
        f.m_enterAsTab = v.toBool();
        editor.apply(Applied::EnterAsTab);
        break;
    }
}

void CommonProperties::write(const ControlFrame &frame, PropertyBag &bag,
                             std::initializer_list<CommonKey> keys)
{
    for (CommonKey key : keys)
        bag.WriteProperty(name(key), value(frame, key), defaultValue(frame, key));
}

namespace {

// Whether a control holds the default of a key, compared as the control holds it (cheap: a new
// control asks this of every key).
bool holdsDefault(const ControlFrame &f, CommonKey key, const CommonDefaults &d)
{
    switch (key) {
    case CommonKey::BackColor: return f.BackColor() == OleColor::WindowBackground;
    case CommonKey::ForeColor: return f.ForeColor() == d.foreColor;
    case CommonKey::DisabledColor: return f.DisabledColor() == d.disabledColor;
    case CommonKey::Enabled: return f.Enabled();
    case CommonKey::Font: return !f.testAttribute(Qt::WA_SetFont);
    case CommonKey::Locked: return !f.Locked();
    case CommonKey::MouseIcon: return f.MouseIcon().isNull();
    case CommonKey::BorderStyle: return f.BorderStyle() == twFixed3D;
    case CommonKey::Alignment: return f.Alignment() == d.alignment;
    case CommonKey::OLEDragMode: return f.OLEDragMode() == ControlFrame::OLEDragManual;
    case CommonKey::OLEDropMode: return f.OLEDropMode() == ControlFrame::OLEDropNone;
    case CommonKey::MousePointer: return f.MousePointer() == ControlFrame::MousePointerDefault;
    case CommonKey::SelectTextOnFocus: return f.SelectTextOnFocus() == d.selectTextOnFocus;
    case CommonKey::ToolTip: return f.ToolTip().isEmpty();
    case CommonKey::CheckBox: return !f.CheckBox();
    case CommonKey::Checked: return f.Checked() == d.checked;
    case CommonKey::NullIfEmpty: return !f.NullIfEmpty();
    case CommonKey::EnterAsTab: return !f.EnterAsTab();
    }
    return true;
}

} // namespace

void CommonProperties::initialise(ControlFrame &frame)
{
    const QSize size(Twips::toPixels(Twips::DefaultWidth), Twips::toPixels(Twips::DefaultHeight));
    if (frame.size() != size)
        frame.resize(size);
    const CommonDefaults &defaults = frame.commonDefaults();
    for (CommonKey key : AllKeys) {
        if (holdsDefault(frame, key, defaults))
            continue;
        if (key == CommonKey::Font)
            frame.QFrame::setFont(QFont()); // the ambient font: the parent's, now and later
        else
            assign(frame, key, check(key, defaultValue(frame, key)));
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
