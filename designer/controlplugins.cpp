#include "controlplugins.h"

#include "controlicons.h"
#include "propertysheet.h"
#include "taskmenu.h"

#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QExtensionManager>

#include <QMetaClassInfo>

namespace Tarnwell {
namespace {

template<class Control>
ControlFrame *make(QWidget *parent)
{
    return new Control(parent);
}

const ControlDescription descriptions[] = {
    {"Tarnwell::MaskBox", "maskBox", "tarnwell/maskbox.h", "Free text constrained by an input mask",
     "A text box whose input mask, such as (###) ###-####, checks every keystroke: digits, letters "
     "or any character where the mask puts a placeholder, its literals where it does not.",
     "(#)", &MaskBox::staticMetaObject, &make<MaskBox>},
    {"Tarnwell::NumberBox", "numberBox", "tarnwell/numberbox.h",
     "Numbers of a chosen numeric data type, with grouping, currency symbol and negative colour",
     "A text box for one number of a chosen type, byte to decimal and currency, shown with "
     "grouping, a currency symbol and a colour for negatives, kept within a range and stepped by "
     "the arrow keys or an up-down button.",
     "1.5", &NumberBox::staticMetaObject, &make<NumberBox>},
    {"Tarnwell::DateBox", "dateBox", "tarnwell/datebox.h",
     "Dates in a chosen day/month/year order, with a drop-down calendar",
     "A date typed into a numeric mask in the chosen day, month and year order while focused and "
     "shown with the month's name when not, with a drop-down calendar or, for month-and-year "
     "dates, an up-down button.",
     "31", &DateBox::staticMetaObject, &make<DateBox>},
    {"Tarnwell::TimeBox", "timeBox", "tarnwell/timebox.h", "Times in 12- or 24-hour form",
     "A time of day in 12- or 24-hour form, with or without seconds; the A and P keys switch the "
     "half of the day and an up-down button steps the field under the caret.",
     "12:", &TimeBox::staticMetaObject, &make<TimeBox>},
};

// The extensions serve every control of a form editor: registered once, whichever control's
// plugin Designer initializes first.
void registerExtensions(QDesignerFormEditorInterface *core)
{
    QExtensionManager *manager = core->extensionManager();
    static constexpr char registered[] = "tarnwellExtensionsRegistered";
    if (!manager || manager->property(registered).toBool())
        return;
    manager->setProperty(registered, true);
    PropertySheetFactory::registerIn(manager);
    PropertiesTaskMenuFactory::registerIn(manager);
}

} // namespace

ControlPlugin::ControlPlugin(const ControlDescription &description, QObject *parent)
    : QObject(parent), m_description(description)
{
}

QString ControlPlugin::name() const { return QLatin1String(m_description.className); }
QString ControlPlugin::group() const { return QStringLiteral("Tarnwell"); }
QString ControlPlugin::toolTip() const { return QLatin1String(m_description.toolTip); }
QString ControlPlugin::whatsThis() const { return QLatin1String(m_description.whatsThis); }

QString ControlPlugin::includeFile() const
{
    // Angle brackets: the generated code includes the installed header, not one beside the form.
    return QLatin1Char('<') + QLatin1String(m_description.header) + QLatin1Char('>');
}

QIcon ControlPlugin::icon() const { return controlIcon(QLatin1String(m_description.glyph)); }

QWidget *ControlPlugin::createWidget(QWidget *parent)
{
    ControlFrame *control = m_description.create(parent);
    // A control on one of Designer's forms is being designed; one in Designer's preview, or made
    // by QUiLoader in a program, runs.
    if (m_core && QDesignerFormWindowInterface::findFormWindow(parent))
        control->setUserMode(false);
    return control;
}

void ControlPlugin::initialize(QDesignerFormEditorInterface *core)
{
    if (m_core)
        return;
    m_core = core;
    registerExtensions(core);
}

QString ControlPlugin::domXml() const
{
    QString xml = QStringLiteral("<ui language=\"c++\">\n <widget class=\"%1\" name=\"%2\">\n"
                                 "  <property name=\"geometry\">\n   <rect>\n    <x>0</x>\n"
                                 "    <y>0</y>\n    <width>110</width>\n    <height>21</height>\n"
                                 "   </rect>\n  </property>\n </widget>\n")
                      .arg(name(), QLatin1String(m_description.objectName));
    // The property help strings become the property editor's tool tips.
    QString tips;
    const QMetaObject *meta = m_description.metaObject;
    for (int i = 0; i < meta->classInfoCount(); ++i) {
        const QMetaClassInfo info = meta->classInfo(i);
        const QLatin1String key(info.name());
        if (key.startsWith(QLatin1String("Help:"))) {
            tips += QStringLiteral("    <tooltip name=\"%1\">%2</tooltip>\n")
                        .arg(key.mid(5), QString::fromUtf8(info.value()).toHtmlEscaped());
        }
    }
    if (!tips.isEmpty()) {
        xml += QStringLiteral(" <customwidgets>\n  <customwidget>\n   <class>%1</class>\n"
                              "   <propertyspecifications>\n%2   </propertyspecifications>\n"
                              "  </customwidget>\n </customwidgets>\n")
                   .arg(name(), tips);
    }
    return xml + QStringLiteral("</ui>\n");
}

ControlCollection::ControlCollection(QObject *parent) : QObject(parent)
{
    for (const ControlDescription &description : descriptions)
        m_plugins.append(new ControlPlugin(description, this));
}

} // namespace Tarnwell
