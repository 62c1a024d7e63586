// Scripts drive the demo through its command line: every misuse must be a clear error, never a
// half-understood run.
#include "demooptions.h"

#include "common/testsupport.h"

namespace {

using Tarnwell::Demo::DemoOptions;

struct OptionsRow {
    const char *name;
    QStringList arguments; // after the program name
    const char *load;
    const char *save;
    const char *screenshot;
    bool sample;
    bool design;
    const char *errorPart; // nullptr: parses
    const char *properties = "", *page = ""; // the field whose dialog opens, on that page
};

const OptionsRow optionRows[] = {
    {"Nothing", {}, "", "", "", false, false, nullptr},
    {"LoadAndSave", {"--load", "a.json", "--save", "b.json"}, "a.json", "b.json", "", false, false, nullptr},
    {"EqualsForm", {"--save=b.json", "--design"}, "", "b.json", "", false, true, nullptr},
    {"ValueContainingEquals", {"--save=x=y.json"}, "", "x=y.json", "", false, false, nullptr},
    {"ScreenshotTypesSample", {"--screenshot", "s.png"}, "", "", "s.png", true, false, nullptr},
    {"ScreenshotOfLoadedForm", {"--load", "a.json", "--screenshot", "s.png"}, "a.json", "", "s.png", false, false, nullptr},
    {"SampleExplicit", {"--sample"}, "", "", "", true, false, nullptr},
    {"MissingFile", {"--save"}, "", "", "", false, false, "needs a file name"},
    {"EmptyFile", {"--save="}, "", "", "", false, false, "needs a file name"},
    {"OptionTakenAsFile", {"--load", "--sample"}, "", "", "", false, false, "needs a file name"},
    {"GivenTwice", {"--load", "a", "--load", "b"}, "", "", "", false, false, "given twice"},
    {"Unknown", {"--fast"}, "", "", "", false, false, "unknown argument \"--fast\""},
    {"StrayWord", {"order.json"}, "", "", "", false, false, "unknown argument"},
    {"ErrorDropsEverythingElse", {"--design", "--bogus"}, "", "", "", false, false, "unknown"},
    {"Properties", {"--properties", "mskTelephone"}, "", "", "", false, false, nullptr, "mskTelephone"},
    {"PropertiesAndPage", {"--properties=nmbPrice", "--page", "About"}, "", "", "", false, false, nullptr, "nmbPrice",
     "About"},
    {"PageBeforeProperties", {"--page", "General", "--properties", "dtbOrderDate"}, "", "", "", false, false, nullptr,
     "dtbOrderDate", "General"},
    {"PageAlone", {"--page", "About"}, "", "", "", false, false, "--page needs --properties"},
    {"PropertiesMissingField", {"--properties"}, "", "", "", false, false, "needs a field name"},
    {"PageMissingCaption", {"--properties", "x", "--page"}, "", "", "", false, false, "needs a page caption"},
};
class DemoOptionsTable : public ::testing::TestWithParam<OptionsRow> {};

TEST_P(DemoOptionsTable, Parses)
{
    const OptionsRow &row = GetParam();
    const DemoOptions options = DemoOptions::parse(QStringList{QStringLiteral("tarnwell-demo")} + row.arguments);
    if (row.errorPart) {
        EXPECT_TRUE(options.error.contains(QString::fromUtf8(row.errorPart))) << options.error.toStdString();
        EXPECT_FALSE(options.design);
        EXPECT_FALSE(options.batch());
        return;
    }
    EXPECT_EQ(options.error, QString());
    EXPECT_EQ(options.loadFile, QString::fromUtf8(row.load));
    EXPECT_EQ(options.saveFile, QString::fromUtf8(row.save));
    EXPECT_EQ(options.screenshotFile, QString::fromUtf8(row.screenshot));
    EXPECT_EQ(options.sample, row.sample);
    EXPECT_EQ(options.design, row.design);
    EXPECT_EQ(options.properties, QString::fromUtf8(row.properties));
    EXPECT_EQ(options.page, QString::fromUtf8(row.page));
    EXPECT_EQ(options.batch(), *row.save || *row.screenshot);
}

INSTANTIATE_TEST_SUITE_P(CommandLine, DemoOptionsTable, ::testing::ValuesIn(optionRows), TestSupport::rowName);

} // namespace
