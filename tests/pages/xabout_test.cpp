// The About page as a user meets it: its texts, the links' colours as the mouse moves, and the
// links opened by a click or from the keyboard.
#include <tarnwell/xabout.h>

#include "common/testsupport.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QDesktopServices>
#include <QLabel>
#include <QPlainTextEdit>
#include <QUrl>
#include <QVBoxLayout>

#include <vector>

namespace {

using Tarnwell::xAbout;

const QColor darkBlue(0, 0, 128); // 0x800000: blue in the high byte
const QColor darkRed(192, 0, 0);  // 192

// The disclaimer as the page's documentation writes it: " / " stands for a blank and a line break.
QString documentedDisclaimer()
{
    QString text = QStringLiteral(
        "This Software is provided free of charge, and on an \"as is\" basis, without / warranty of "
        "any kind, either express or implied, including, without limitation, / the implied "
        "warranties or merchantability, fitness for a particular purpose, or / noninfringement. The "
        "entire risk arising out of use or performance of the / Software remains with you. / In no "
        "event shall the author be liable for any damages whatsoever / (including, without "
        "limitation, damages for loss of business profits, business / interruption, loss of "
        "business information, or any other pecuniary loss) arising / out of the use of or "
        "inability to use this product, even if the author has been / advised of the possibility "
        "of such damages.");
    return text.replace(QLatin1String(" / "), QLatin1String(" \r\n")) + QLatin1String("\r\n");
}

class AboutFixture : public WidgetFixture
{
protected:
    void SetUp() override
    {
        WidgetFixture::SetUp();
        page = new xAbout(window.get());
        auto *layout = new QVBoxLayout(window.get());
        layout->addWidget(page);
        window->resize(720, 520);
        showAndFocus(page);
    }
    template<class W = QWidget>
    W *child(const char *name) const
    {
        auto *found = page->findChild<W *>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    QColor colorOf(const char *name) const { return child<QLabel>(name)->palette().color(QPalette::WindowText); }

    xAbout *page = nullptr;
};

struct TextRow {
    const char *name;
    const char *widget;
    QString text;
};

const TextRow textRows[] = {
    {"title", "lblTitle", QStringLiteral("Tarnwell - Edit Control")},
    {"version from the build", "lblVersion", QStringLiteral("Version " TARNWELL_EXPECTED_VERSION)},
    {"suggestions", "Label1", QStringLiteral("This Software is FreeWare. Suggestions to:")},
    {"support address", "Label3", QStringLiteral(TARNWELL_EXPECTED_EMAIL)},
    {"visit", "Label5", QStringLiteral("Visit the web site at:")},
    {"web site", "Label4", QStringLiteral(TARNWELL_EXPECTED_WEB_SITE)},
};
class AboutTexts : public AboutFixture, public ::testing::WithParamInterface<TextRow> {};

TEST_P(AboutTexts, LabelShowsItsText)
{
    auto *label = child<QLabel>(GetParam().widget);
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(About, AboutTexts, ::testing::ValuesIn(textRows), TestSupport::rowName);

TEST_F(AboutFixture, DisclaimerIsTheDocumentedTextWithItsLineEnds)
{
    EXPECT_EQ(xAbout::disclaimer(), documentedDisclaimer());
    EXPECT_TRUE(xAbout::disclaimer().contains(QLatin1String("warranties or merchantability")));
    auto *text = child<QPlainTextEdit>("Text1");
    ASSERT_NE(text, nullptr);
    EXPECT_TRUE(text->isReadOnly());
    // Shown one line to a line, each keeping its trailing blank.
    QString shown = documentedDisclaimer();
    EXPECT_EQ(text->toPlainText(), shown.replace(QLatin1String("\r\n"), QLatin1String("\n")));
}

TEST_F(AboutFixture, EveryDocumentedWidgetIsThereAndThePageIsAbout)
{
    for (const char *name : {"Frame1", "Picture1", "Picture2", "lblDescription"})
        EXPECT_NE(page->findChild<QWidget *>(QString::fromLatin1(name)), nullptr) << name;
    EXPECT_FALSE(child<QLabel>("lblDescription")->text().isEmpty());
    EXPECT_EQ(page->Caption(), QStringLiteral("About"));
}

// Where the mouse moves, in order, and the links' colours after the last move.
struct HoverRow {
    const char *name;
    std::vector<const char *> moves; // widget names; "page" is a corner of the page itself
    QColor mail;
    QColor web;
};

const HoverRow hoverRows[] = {
    {"nothing yet", {}, darkBlue, darkBlue},
    {"over the mail link", {"Label3"}, darkRed, darkBlue},
    {"over the web link", {"Label4"}, darkBlue, darkRed},
    {"one link then the other keeps both", {"Label3", "Label4"}, darkRed, darkRed},
    {"back over suggestions", {"Label3", "Label1"}, darkBlue, darkBlue},
    {"back over visit", {"Label4", "Label5"}, darkBlue, darkBlue},
    {"back over the disclaimer", {"Label3", "Label4", "Text1"}, darkBlue, darkBlue},
    {"back over the picture", {"Label4", "Picture1"}, darkBlue, darkBlue},
    {"back over the page", {"Label3", "page"}, darkBlue, darkBlue},
    {"over the title nothing changes", {"Label3", "lblTitle"}, darkRed, darkBlue},
    {"hover again after normal", {"Label3", "Label1", "Label3"}, darkRed, darkBlue},
};
class AboutHover : public AboutFixture, public ::testing::WithParamInterface<HoverRow> {};

TEST_P(AboutHover, LinkColoursFollowTheMouse)
{
    for (const char *name : GetParam().moves) {
        if (QLatin1String(name) == QLatin1String("page")) {
            QTest::mouseMove(page, QPoint(1, 1));
            continue;
        }
        QWidget *target = child(name);
        ASSERT_NE(target, nullptr);
        if (auto *text = qobject_cast<QPlainTextEdit *>(target))
            target = text->viewport();
        QTest::mouseMove(target, target->rect().center());
    }
    EXPECT_EQ(colorOf("Label3"), GetParam().mail);
    EXPECT_EQ(colorOf("Label4"), GetParam().web);
}

INSTANTIATE_TEST_SUITE_P(About, AboutHover, ::testing::ValuesIn(hoverRows), TestSupport::rowName);

// Takes the URLs the page opens instead of the desktop.
class UrlCatcher : public QObject
{
    Q_OBJECT
public:
    UrlCatcher()
    {
        for (const char *scheme : {"mailto", "http", "https"})
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "open");
    }
    ~UrlCatcher() override
    {
        for (const char *scheme : {"mailto", "http", "https"})
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }
    QList<QUrl> opened;
public slots:
    void open(const QUrl &url) { opened.append(url); }
};

enum class Gesture { Click, RightClick, DragOff, Return, Enter, Space, AccessibleAction };

struct LinkRow {
    const char *name;
    const char *link;
    Gesture gesture;
    const char *url; // null: nothing opens
};

const LinkRow linkRows[] = {
    {"click mail", "Label3", Gesture::Click, "mailto:" TARNWELL_EXPECTED_EMAIL},
    {"click web", "Label4", Gesture::Click, TARNWELL_EXPECTED_WEB_SITE},
    {"right click opens nothing", "Label3", Gesture::RightClick, nullptr},
    {"pressed then dragged off opens nothing", "Label4", Gesture::DragOff, nullptr},
    {"return on mail", "Label3", Gesture::Return, "mailto:" TARNWELL_EXPECTED_EMAIL},
    {"enter on web", "Label4", Gesture::Enter, TARNWELL_EXPECTED_WEB_SITE},
    {"space on web", "Label4", Gesture::Space, TARNWELL_EXPECTED_WEB_SITE},
    {"screen reader presses mail", "Label3", Gesture::AccessibleAction, "mailto:" TARNWELL_EXPECTED_EMAIL},
};
class AboutLinks : public AboutFixture, public ::testing::WithParamInterface<LinkRow> {};

TEST_P(AboutLinks, GestureOpensTheLinkOnce)
{
    UrlCatcher catcher;
    QWidget *link = child(GetParam().link);
    ASSERT_NE(link, nullptr);
    switch (GetParam().gesture) {
    case Gesture::Click:
        QTest::mouseClick(link, Qt::LeftButton);
        break;
    case Gesture::RightClick:
        QTest::mouseClick(link, Qt::RightButton);
        break;
    case Gesture::DragOff:
        QTest::mousePress(link, Qt::LeftButton);
        QTest::mouseRelease(link, Qt::LeftButton, {}, QPoint(link->width() + 20, link->height() + 20));
        break;
    case Gesture::Return:
    case Gesture::Enter:
    case Gesture::Space: {
        link->setFocus(Qt::TabFocusReason);
        const Qt::Key key = GetParam().gesture == Gesture::Return ? Qt::Key_Return
            : GetParam().gesture == Gesture::Enter                ? Qt::Key_Enter
                                                                  : Qt::Key_Space;
        QTest::keyClick(link, key);
        break;
    }
    case Gesture::AccessibleAction: {
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(link);
        ASSERT_NE(face, nullptr);
        EXPECT_EQ(face->role(), QAccessible::Link);
        ASSERT_NE(face->actionInterface(), nullptr);
        face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        break;
    }
    }
    if (GetParam().url)
        EXPECT_EQ(catcher.opened, QList<QUrl>{QUrl(QString::fromLatin1(GetParam().url))});
    else
        EXPECT_TRUE(catcher.opened.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(About, AboutLinks, ::testing::ValuesIn(linkRows), TestSupport::rowName);

TEST_F(AboutFixture, LinksAreReachedWithTabAndNamedForAScreenReader)
{
    auto *mail = child("Label3");
    auto *web = child("Label4");
    mail->setFocus(Qt::TabFocusReason);
    QTest::keyClick(mail, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), web);
    for (QWidget *link : {mail, web}) {
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(link);
        ASSERT_NE(face, nullptr);
        EXPECT_TRUE(face->text(QAccessible::Name).contains(qobject_cast<QLabel *>(link)->text()))
            << face->text(QAccessible::Name).toStdString();
    }
}

} // namespace

#include "xabout_test.moc"
