// The four controls beside Qt's own editors on one form, in the styles Qt ships: the same
// height, the text on the same line, the style's own panel and buttons, and the palette.
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include "common/testsupport.h"
#include "shared/filesettingsstore.h"
#include "shared/settingsreader.h"
#include "shared/stylepeers.h"

#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTimeEdit>

#include <functional>
#include <tuple>

using namespace Tarnwell;

namespace {

// A control and its peer, showing the same text.
struct Pair {
    const char *name;
    std::function<ControlFrame *(QWidget *)> control;
    std::function<QWidget *(QWidget *)> peer;
};

const Pair pairs[] = {
    {"MaskBox", [](QWidget *p) { auto *b = new MaskBox(p); b->findChild<QLineEdit *>("Text1")->setText("10:30"); return b; },
     [](QWidget *p) { return new QLineEdit(QStringLiteral("10:30"), p); }},
    {"NumberBox", [](QWidget *p) { auto *b = new NumberBox(p); b->setUpDown(true); b->setValue(12.5); return b; },
     [](QWidget *p) { auto *s = new QDoubleSpinBox(p); s->setRange(-99, 99); s->setValue(12.5); return s; }},
    {"DateBox", [](QWidget *p) { auto *b = new DateBox(p); b->setValue(QVariant::fromValue(Date::fromYmd(2024, 3, 7))); return b; },
     [](QWidget *p) { auto *d = new QDateEdit(QDate(2024, 3, 7), p); d->setDisplayFormat("dd/MMM/yyyy"); return d; }},
    {"TimeBox", [](QWidget *p) { auto *b = new TimeBox(p); b->setUpDown(true); b->setValue(QVariant::fromValue(Date::fromHms(10, 30, 0))); return b; },
     [](QWidget *p) { auto *t = new QTimeEdit(QTime(10, 30), p); t->setDisplayFormat("hh:mm:ss AP"); return t; }},
};

QPalette darkPalette()
{
    QPalette p(QColor(53, 53, 53));
    p.setColor(QPalette::Base, QColor(30, 30, 30));
    p.setColor(QPalette::Text, Qt::white);
    p.setColor(QPalette::Highlight, QColor(42, 130, 218));
    p.setColor(QPalette::HighlightedText, Qt::black);
    return p;
}

// The control and its peer on one form, in the style under test; buttons without a per-user
// width take the style's.
class FormFixture : public WidgetFixture
{
public:
    QWidget *formWindow() const { return window.get(); }

protected:
    void setUpForm(const char *styleName, const Pair &pair)
    {
        SettingsReader::setStore(&settings);
        QApplication::setStyle(QStyleFactory::create(QString::fromLatin1(styleName)));
        WidgetFixture::SetUp();
        window->setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
        form = new QFormLayout(window.get());
        control = pair.control(nullptr);
        peer = pair.peer(nullptr);
        // The focus starts elsewhere, so that neither shows a selection.
        auto *elsewhere = new QPushButton(QStringLiteral("Elsewhere"));
        form->addRow(elsewhere);
        form->addRow(QStringLiteral("Field"), control);
        form->addRow(QStringLiteral("Field"), peer);
        window->show();
        (void)QTest::qWaitForWindowExposed(window.get());
        elsewhere->setFocus();
    }
    void TearDown() override
    {
        WidgetFixture::TearDown();
        QApplication::setPalette(appPalette);
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        SettingsReader::setStore(nullptr);
    }
    QRect labelOffset(QWidget *field) const
    {
        return form->labelForField(field)->geometry().translated(-field->pos());
    }
    // The width the control's buttons take at its right (none for MaskBox).
    int buttonsWidth() const
    {
        int width = 0;
        for (const char *name : {"UpDown1", "fdt"})
            if (auto *w = control->findChild<QWidget *>(QLatin1String(name)); w && w->isVisible())
                width = w->width();
        return width;
    }

    QTemporaryDir dir;
    FileSettingsStore settings{dir.filePath(QStringLiteral("settings.ini"))};
    QPalette appPalette = QApplication::palette();
    QFormLayout *form = nullptr;
    ControlFrame *control = nullptr;
    QWidget *peer = nullptr;
};

// The rows of `w`'s picture, within its text area, holding text: first and last.
std::pair<int, int> inkRows(QWidget *w, int rightMargin)
{
    const QImage image = w->grab().toImage();
    int first = -1, last = -1;
    for (int y = 2; y < image.height() - 2; ++y)
        for (int x = 4; x < image.width() - rightMargin - 4; ++x)
            if (qGray(image.pixel(x, y)) < 100) {
                first = first < 0 ? y : first;
                last = y;
                break;
            }
    return {first, last};
}

using StyleAndPair = std::tuple<const char *, Pair>;
const auto styleAndPairName = [](const auto &info) {
    return std::string(std::get<0>(info.param)) + std::get<1>(info.param).name;
};

class BesidePeers : public FormFixture, public ::testing::WithParamInterface<StyleAndPair>
{
protected:
    void SetUp() override { setUpForm(std::get<0>(GetParam()), std::get<1>(GetParam())); }
};

TEST_P(BesidePeers, StandsAsTallAsItsPeerWithItsTextAndLabelOnTheSameLine)
{
    EXPECT_EQ(control->sizeHint().height(), peer->sizeHint().height());
    EXPECT_EQ(control->minimumSizeHint().height(), peer->minimumSizeHint().height());
    EXPECT_EQ(control->height(), peer->height());
    EXPECT_EQ(labelOffset(control), labelOffset(peer));
    EXPECT_EQ(inkRows(control, buttonsWidth()), inkRows(peer, buttonsWidth()));
    // As wide as a line edit asks, and its buttons.
    const QLineEdit lineEdit(window.get());
    EXPECT_EQ(control->sizeHint().width(), lineEdit.sizeHint().width() + buttonsWidth());
    EXPECT_EQ(control->minimumSizeHint().width(), lineEdit.minimumSizeHint().width() + buttonsWidth());
    EXPECT_EQ(control->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    EXPECT_EQ(control->sizePolicy().horizontalPolicy(), QLineEdit().sizePolicy().horizontalPolicy());
    // Outside a layout, the documented default size.
    std::unique_ptr<ControlFrame> loose(std::get<1>(GetParam()).control(window.get()));
    EXPECT_EQ(loose->size(), QSize(110, 21));
}

// The spin boxes' own buttons, where the peer has them, in the width the style gives them.
TEST_P(BesidePeers, ButtonsAreTheStylesSpinBoxButtons)
{
    auto *spin = qobject_cast<QAbstractSpinBox *>(peer);
    auto *upDown1 = control->findChild<QWidget *>(QStringLiteral("UpDown1"));
    if (!upDown1 || !upDown1->isVisible())
        GTEST_SKIP() << "no up-down button";
    peer->setFixedSize(control->size());
    const QRect up = Peers::upButtonRect(*spin);
    EXPECT_EQ(upDown1->width(), up.width());
    const QImage ours = control->grab().toImage(), theirs = peer->grab().toImage();
    // The buttons, from the top of the upper one to as far above the bottom (the corners around
    // them blend into what lies under them, which is a line edit's panel here).
    for (int y = up.top(); y < ours.height() - up.top(); ++y)
        for (int x = up.left(); x <= up.right(); ++x)
            ASSERT_EQ(ours.pixelColor(x, y), theirs.pixelColor(x, y)) << x << ',' << y;
}

INSTANTIATE_TEST_SUITE_P(Styles, BesidePeers, ::testing::Combine(::testing::Values("Fusion", "Windows"),
                                                          ::testing::ValuesIn(pairs)), styleAndPairName);

// The other borders: a flat box in the window text's colour, or nothing around the text's base.
struct BorderRow { const char *name; twBorderStyleConstants border; QPalette::ColorRole edge; };
class Border : public FormFixture, public ::testing::WithParamInterface<BorderRow>
{
protected:
    void SetUp() override { setUpForm("Fusion", pairs[0]); }
};

TEST_P(Border, FlatBoxOrNothing)
{
    control->setBorderStyle(GetParam().border);
    const QImage image = control->grab().toImage();
    const QPoint corners[] = {{0, 0}, {image.width() - 1, image.height() - 1}};
    for (const QPoint &at : corners)
        EXPECT_EQ(image.pixelColor(at), control->palette().color(GetParam().edge)) << at.x();
    EXPECT_EQ(image.pixelColor(1, 1), control->palette().color(QPalette::Base));
    EXPECT_FALSE(control->findChild<QLineEdit *>(QStringLiteral("Text1"))->hasFrame());
}

INSTANTIATE_TEST_SUITE_P(Fusion, Border, ::testing::Values(
    BorderRow{"FixedSingle", twFixedSingle, QPalette::WindowText}, BorderRow{"None", twNone, QPalette::Base}),
    TestSupport::rowName);

// At its size hint, whatever the border and the font, the text box holds a whole line.
struct FitRow { const char *name; int pair; twBorderStyleConstants border; int points; };
class Fit : public FormFixture, public ::testing::WithParamInterface<FitRow>
{
protected:
    void SetUp() override { setUpForm("Windows", pairs[GetParam().pair]); }
};

TEST_P(Fit, TextIsNotClippedAtTheSizeHint)
{
    control->setBorderStyle(GetParam().border);
    window->setFont(QFont(QStringLiteral("DejaVu Sans"), GetParam().points));
    const QFontMetrics metrics(control->font());
    for (const bool minimum : {false, true}) {
        control->setFixedSize(minimum ? control->minimumSizeHint() : control->sizeHint());
        const QLineEdit *text1 = control->findChild<QLineEdit *>(QStringLiteral("Text1"));
        EXPECT_GE(text1->height(), metrics.height()) << (minimum ? "minimum" : "hint");
        EXPECT_EQ(text1->textMargins(), QMargins()) << "no squeezing";
    }
}

INSTANTIATE_TEST_SUITE_P(Windows, Fit, ::testing::Values(
    FitRow{"MaskBox3D8pt", 0, twFixed3D, 8}, FitRow{"MaskBoxSingle20pt", 0, twFixedSingle, 20},
    FitRow{"MaskBoxNone9pt", 0, twNone, 9}, FitRow{"DateBox3D12pt", 2, twFixed3D, 12},
    FitRow{"NumberBoxNone7pt", 1, twNone, 7}), TestSupport::rowName);

// The 3-D border against a QLineEdit of the same size in the same state: the same panel.
struct PanelRow { const char *name; const char *style; std::function<void(QWidget *, bool)> state; };
class Panel : public FormFixture, public ::testing::WithParamInterface<PanelRow>
{
protected:
    void SetUp() override { setUpForm(GetParam().style, pairs[0]); }
};

TEST_P(Panel, IsTheStylesLineEditPanel)
{
    control->findChild<QLineEdit *>(QStringLiteral("Text1"))->clear();
    static_cast<QLineEdit *>(peer)->clear();
    peer->setFixedSize(control->size());
    GetParam().state(control, true);
    const QImage ours = control->grab().toImage();
    GetParam().state(peer, false);
    const QImage theirs = peer->grab().toImage();
    const int ring = control->frameWidth() + 1;
    for (int y = 0; y < ours.height(); ++y) {
        for (int x = 0; x < ours.width(); ++x) {
            const bool edge = x < ring || y < ring || x >= ours.width() - ring || y >= ours.height() - ring;
            ASSERT_TRUE(!edge || ours.pixelColor(x, y) == theirs.pixelColor(x, y)) << x << ',' << y;
        }
    }
}

const auto plain = [](QWidget *, bool) {};
const auto focused = [](QWidget *w, bool) { w->setFocus(); QApplication::processEvents(); };
const auto locked = [](QWidget *w, bool ours) { ours ? w->setProperty("Locked", true) : w->setProperty("readOnly", true); };
INSTANTIATE_TEST_SUITE_P(States, Panel, ::testing::Values(
    PanelRow{"FusionPlain", "Fusion", plain}, PanelRow{"FusionFocused", "Fusion", focused},
    PanelRow{"FusionLocked", "Fusion", locked}, PanelRow{"WindowsPlain", "Windows", plain},
    PanelRow{"WindowsFocused", "Windows", focused}), TestSupport::rowName);

// Text, caret, base and selection follow a dark palette however it arrives; explicit colours
// are drawn as they are.
struct PaletteRow { const char *name; int pair; std::function<void(FormFixture &, ControlFrame *)> apply; QRgb text; };
class PaletteFollow : public FormFixture, public ::testing::WithParamInterface<PaletteRow>
{
protected:
    void SetUp() override { setUpForm("Fusion", pairs[GetParam().pair]); }
    static int count(const QImage &image, QRgb colour)
    {
        int n = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                n += image.pixel(x, y) == colour;
        return n;
    }
};

TEST_P(PaletteFollow, TextCaretBaseAndSelection)
{
    showAndFocus(control);
    control->setProperty("SelLength", 0); // the caret alone, no selection
    GetParam().apply(*this, control);
    QApplication::processEvents();
    auto *text1 = control->findChild<QLineEdit *>(QStringLiteral("Text1"));
    ASSERT_TRUE(text1);
    const QImage shown = text1->grab().toImage();
    const QColor base = control->palette().color(QPalette::Base);
    EXPECT_GT(count(shown, GetParam().text), 0) << "the text's colour";
    if (GetParam().text == QColor(Qt::white).rgb()) {
        EXPECT_EQ(shown.pixel(0, 0), base.rgb()) << "the palette's base";
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x)
                ASSERT_GE(qGray(shown.pixel(x, y)), qGray(base.rgb())) << "nothing darker, caret included";
    }
    control->setProperty("SelStart", 0);
    control->setProperty("SelLength", 2);
    EXPECT_GT(count(text1->grab().toImage(), control->palette().color(QPalette::Highlight).rgb()), 0);
}

const auto appDark = [](FormFixture &, ControlFrame *) { QApplication::setPalette(darkPalette()); };
const auto windowDark = [](FormFixture &f, ControlFrame *) { f.formWindow()->setPalette(darkPalette()); };
const auto darkThenRed = [](FormFixture &f, ControlFrame *c) { windowDark(f, c); c->setForeColor(OleColor(0x0000FF)); };
const QRgb white = QColor(Qt::white).rgb();
INSTANTIATE_TEST_SUITE_P(Fusion, PaletteFollow, ::testing::Values(
    // The date and the time box share their inner box: each way a palette arrives once between them.
    PaletteRow{"MaskBoxApplication", 0, appDark, white}, PaletteRow{"NumberBoxWindow", 1, windowDark, white},
    PaletteRow{"DateBoxApplication", 2, appDark, white}, PaletteRow{"TimeBoxWindow", 3, windowDark, white},
    PaletteRow{"TimeBoxRedForeColor", 3, darkThenRed, qRgb(255, 0, 0)},
    PaletteRow{"NumberBoxNegativeColour", 1, [](FormFixture &f, ControlFrame *c) { windowDark(f, c); c->setProperty("Value", -3); }, qRgb(192, 0, 0)},
    PaletteRow{"MaskBoxBlueWhenDisabled", 0, [](FormFixture &f, ControlFrame *c) {
        windowDark(f, c); c->setDisabledColor(OleColor(0xFF0000)); c->setEnabled(false); }, qRgb(0, 0, 255)}),
    TestSupport::rowName);

} // namespace
