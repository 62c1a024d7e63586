#include <tarnwell/xabout.h>

#include "pages/linklabel.h"

#include <QDesktopServices>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QStyle>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

#ifndef TARNWELL_SUPPORT_EMAIL
#define TARNWELL_SUPPORT_EMAIL "support@tarnwell.dev"
#endif
#ifndef TARNWELL_WEB_SITE
#define TARNWELL_WEB_SITE "https://tarnwell.dev"
#endif

namespace Tarnwell {

namespace {

constexpr OleColor linkNormal = 0x800000; // dark blue
constexpr OleColor linkHover = 192;       // dark red

QLabel *makeLabel(QWidget *parent, const char *name, const QString &text)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    return label;
}

void openLink(const QString &address)
{
    // A failure to open is silent: there is nothing the page could do about it.
    (void)QDesktopServices::openUrl(QUrl(address));
}

} // namespace

QString xAbout::versionText()
{
    return QStringLiteral("Version %1.%2.%3")
        .arg(TARNWELL_VERSION_MAJOR)
        .arg(TARNWELL_VERSION_MINOR)
        .arg(TARNWELL_VERSION_PATCH);
}

QString xAbout::supportAddress()
{
    return QStringLiteral(TARNWELL_SUPPORT_EMAIL);
}

QString xAbout::webSite()
{
    return QStringLiteral(TARNWELL_WEB_SITE);
}

QString xAbout::disclaimer()
{
    // Every line but the fifth ends in a blank before its line break, and "or merchantability"
    // stays as the text has always read.
    return QStringLiteral(
        "This Software is provided free of charge, and on an \"as is\" basis, without \r\n"
        "warranty of any kind, either express or implied, including, without limitation, \r\n"
        "the implied warranties or merchantability, fitness for a particular purpose, or \r\n"
        "noninfringement. The entire risk arising out of use or performance of the \r\n"
        "Software remains with you. \r\n"
        "In no event shall the author be liable for any damages whatsoever \r\n"
        "(including, without limitation, damages for loss of business profits, business \r\n"
        "interruption, loss of business information, or any other pecuniary loss) arising \r\n"
        "out of the use of or inability to use this product, even if the author has been \r\n"
        "advised of the possibility of such damages.\r\n");
}

xAbout::xAbout(QWidget *parent)
    : PropertyPage(QStringLiteral("About"), parent)
{
    auto *frame = new QFrame(this);
    frame->setObjectName(QStringLiteral("Frame1"));
    frame->setFrameShape(QFrame::StyledPanel);
    auto *picture1 = makeLabel(frame, "Picture1", QString());
    auto *picture2 = makeLabel(frame, "Picture2", QString());
    // The pictures are decoration; they keep their place so the page reads as it always has.
    for (QLabel *picture : {picture1, picture2})
        picture->setFixedSize(32, 32);
    auto *title = makeLabel(frame, "lblTitle", QStringLiteral("Tarnwell - Edit Control"));
    QFont titleFont = title->font();
    titleFont.setBold(true);
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.4);
    title->setFont(titleFont);
    auto *version = makeLabel(frame, "lblVersion", versionText());
    auto *description = makeLabel(frame, "lblDescription",
        tr("Data-entry edit controls for Qt 6 Widgets, by the Tarnwell developers."));
    description->setWordWrap(true);
    auto *frameLayout = new QGridLayout(frame);
    frameLayout->addWidget(picture1, 0, 0, 3, 1, Qt::AlignTop);
    frameLayout->addWidget(title, 0, 1);
    frameLayout->addWidget(version, 1, 1);
    frameLayout->addWidget(description, 2, 1);
    frameLayout->addWidget(picture2, 0, 2, 3, 1, Qt::AlignTop);
    frameLayout->setColumnStretch(1, 1);

    auto *suggestions = makeLabel(this, "Label1", QStringLiteral("This Software is FreeWare. Suggestions to:"));
    m_mail = new Pages::LinkLabel(this, "Label3", linkNormal, linkHover);
    m_mail->setText(supportAddress());
    m_mail->setAccessibleName(tr("Write to %1").arg(supportAddress()));
    auto *visit = makeLabel(this, "Label5", QStringLiteral("Visit the web site at:"));
    m_web = new Pages::LinkLabel(this, "Label4", linkNormal, linkHover);
    m_web->setText(webSite());
    m_web->setAccessibleName(tr("Visit %1").arg(webSite()));
    connect(m_mail, &Pages::LinkLabel::activated, this,
            [] { openLink(QStringLiteral("mailto:") + supportAddress()); });
    connect(m_web, &Pages::LinkLabel::activated, this, [] { openLink(webSite()); });

    auto *links = new QGridLayout;
    links->addWidget(suggestions, 0, 0);
    links->addWidget(m_mail, 0, 1);
    links->addWidget(visit, 1, 0);
    links->addWidget(m_web, 1, 1);
    links->setColumnStretch(2, 1);

    auto *text = new QPlainTextEdit(this);
    text->setObjectName(QStringLiteral("Text1"));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    // A text document ends its lines with a paragraph break, not "\r\n".
    QString shown = disclaimer();
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text->setPlainText(shown);
    text->setAccessibleName(tr("Disclaimer"));
    // Wide enough for the longest line, so only the height ever needs a scroll bar.
    int widest = 0;
    for (const QString &line : shown.split(u'\n'))
        widest = std::max(widest, text->fontMetrics().horizontalAdvance(line));
    text->setMinimumSize(widest + 2 * (text->frameWidth() + int(text->document()->documentMargin()))
                             + text->style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 4,
                         text->fontMetrics().lineSpacing() * 6);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addLayout(links);
    layout->addWidget(text, 1);

    // Moving over these (or the page between them) shows both links in their normal colour.
    setMouseTracking(true);
    m_normalAreas = {picture1, suggestions, visit, text, text->viewport()};
    for (QWidget *area : std::initializer_list<QWidget *>{picture1, suggestions, visit, text, text->viewport(),
                                                          m_mail, m_web}) {
        area->setMouseTracking(true);
        area->installEventFilter(this);
    }
}

xAbout::~xAbout() = default;

void xAbout::fill(QObject *)
{
}

void xAbout::apply(QObject *)
{
}

bool xAbout::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseMove) {
        if (watched == m_mail)
            m_mail->setHovered(true);
        else if (watched == m_web)
            m_web->setHovered(true);
        else if (m_normalAreas.contains(watched))
            showNormalLinks();
    }
    return PropertyPage::eventFilter(watched, event);
}

void xAbout::mouseMoveEvent(QMouseEvent *event)
{
    // Moves over a child that does not take them arrive here too; only the page's own area
    // counts, the children that do have already been seen by the filter.
    if (!childAt(event->position().toPoint()))
        showNormalLinks();
    PropertyPage::mouseMoveEvent(event);
}

void xAbout::showNormalLinks()
{
    m_mail->setHovered(false);
    m_web->setHovered(false);
}

} // namespace Tarnwell
