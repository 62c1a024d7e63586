// The plugin as Designer and QUiLoader see it: the four controls of the collection, what the widget
// box shows and drops, design mode on Designer's forms and run mode elsewhere.
#include "designerfixture.h"

#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include <QXmlStreamReader>

namespace {

using namespace DesignerTest;

struct ControlRow {
    const char *name;
    const char *className;
    const char *objectName;
    const char *includeFile;
    const QMetaObject *metaObject;
};

const ControlRow controlRows[] = {
    {"MaskBox", "Tarnwell::MaskBox", "maskBox", "<tarnwell/maskbox.h>", &Tarnwell::MaskBox::staticMetaObject},
    {"NumberBox", "Tarnwell::NumberBox", "numberBox", "<tarnwell/numberbox.h>", &Tarnwell::NumberBox::staticMetaObject},
    {"DateBox", "Tarnwell::DateBox", "dateBox", "<tarnwell/datebox.h>", &Tarnwell::DateBox::staticMetaObject},
    {"TimeBox", "Tarnwell::TimeBox", "timeBox", "<tarnwell/timebox.h>", &Tarnwell::TimeBox::staticMetaObject},
};

class ControlPluginTest : public ::testing::TestWithParam<ControlRow>
{
};

TEST(ControlCollection, HoldsTheFourControlsInOneGroup)
{
    QDesignerCustomWidgetCollectionInterface *plugins = collection();
    ASSERT_NE(plugins, nullptr);
    QStringList names;
    for (QDesignerCustomWidgetInterface *plugin : plugins->customWidgets()) {
        names << plugin->name();
        EXPECT_EQ(plugin->group(), QStringLiteral("Tarnwell"));
        EXPECT_FALSE(plugin->isContainer());
    }
    EXPECT_EQ(names, QStringList({"Tarnwell::MaskBox", "Tarnwell::NumberBox", "Tarnwell::DateBox",
                                  "Tarnwell::TimeBox"}));
}

TEST_P(ControlPluginTest, DescribesItsControlForTheWidgetBox)
{
    const ControlRow &row = GetParam();
    QDesignerCustomWidgetInterface *plugin = pluginFor(QLatin1String(row.className));
    ASSERT_NE(plugin, nullptr);
    EXPECT_EQ(plugin->includeFile(), QLatin1String(row.includeFile));
    EXPECT_FALSE(plugin->icon().isNull());
    EXPECT_FALSE(plugin->icon().pixmap(22).isNull());
    EXPECT_FALSE(plugin->toolTip().isEmpty());
    EXPECT_FALSE(plugin->whatsThis().isEmpty());
    EXPECT_NE(plugin->toolTip(), plugin->whatsThis());
}

// What Designer drops on a form: the class, its first object name and the default size of a new
// control, 1650 x 315 twips; and the help strings of the class as the properties' tool tips.
TEST_P(ControlPluginTest, DomXmlDropsTheControlAtItsDefaultSize)
{
    const ControlRow &row = GetParam();
    QDesignerCustomWidgetInterface *plugin = pluginFor(QLatin1String(row.className));
    ASSERT_NE(plugin, nullptr);
    QXmlStreamReader xml(plugin->domXml());
    QString widgetClass, widgetName;
    QMap<QString, QString> sizes, tips;
    QString element, tipName;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            element = xml.name().toString();
            if (element == QLatin1String("widget") && widgetClass.isEmpty()) {
                widgetClass = xml.attributes().value(QLatin1String("class")).toString();
                widgetName = xml.attributes().value(QLatin1String("name")).toString();
            }
            if (element == QLatin1String("tooltip"))
                tipName = xml.attributes().value(QLatin1String("name")).toString();
        } else if (xml.isCharacters() && !xml.isWhitespace()) {
            if (element == QLatin1String("width") || element == QLatin1String("height"))
                sizes[element] = xml.text().toString();
            if (element == QLatin1String("tooltip"))
                tips[tipName] = xml.text().toString();
        }
    }
    ASSERT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_EQ(widgetClass, QLatin1String(row.className));
    EXPECT_EQ(widgetName, QLatin1String(row.objectName));
    EXPECT_EQ(sizes.value(QStringLiteral("width")), QStringLiteral("110"));
    EXPECT_EQ(sizes.value(QStringLiteral("height")), QStringLiteral("21"));
    for (int i = 0; i < row.metaObject->classInfoCount(); ++i) {
        const QString key = QLatin1String(row.metaObject->classInfo(i).name());
        if (key.startsWith(QLatin1String("Help:"))) {
            EXPECT_EQ(tips.value(key.mid(5)), QString::fromUtf8(row.metaObject->classInfo(i).value()));
        }
    }
}

// Without Designer's form editor (QUiLoader, a program) the control runs; it is the library's own
// class, not a copy inside the plugin.
TEST_P(ControlPluginTest, CreatesRunningControlsOutsideDesigner)
{
    const ControlRow &row = GetParam();
    QDesignerCustomWidgetInterface *plugin = pluginFor(QLatin1String(row.className));
    ASSERT_NE(plugin, nullptr);
    QWidget parent;
    QWidget *made = plugin->createWidget(&parent);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->metaObject(), row.metaObject);
    auto *control = qobject_cast<Tarnwell::ControlFrame *>(made);
    ASSERT_NE(control, nullptr);
    EXPECT_TRUE(control->UserMode());
}

TEST_P(ControlPluginTest, ControlsOnADesignerFormAreInDesignMode)
{
    const ControlRow &row = GetParam();
    Form form(readFile(roundTripUi));
    auto *control = form.child<Tarnwell::ControlFrame>(row.objectName);
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->metaObject(), row.metaObject);
    EXPECT_FALSE(control->UserMode());
}

INSTANTIATE_TEST_SUITE_P(Controls, ControlPluginTest, ::testing::ValuesIn(controlRows),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(DesignMode, MaskBoxOnAFormShowsItsMask)
{
    Form form(readFile(roundTripUi));
    auto *mask = form.child<Tarnwell::MaskBox>("maskBox");
    ASSERT_NE(mask, nullptr);
    EXPECT_EQ(mask->Text(), QStringLiteral("(###) ###-####"));
}

} // namespace
