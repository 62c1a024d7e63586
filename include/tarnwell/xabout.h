#pragma once
#include <tarnwell/propertypage.h>

namespace Tarnwell {

namespace Pages {
class LinkLabel;
}

/// @brief The "About" page shown beside every control's General page: the library's version, the
/// disclaimer and where to write and read about it. It edits no property.
///
/// The support address (Label3) and the web site (Label4) are links: a click, or Enter or Space
/// while one has the focus, opens "mailto:" and the address, or the site, with
/// QDesktopServices::openUrl. A link turns dark red while the mouse moves over it and back to dark
/// blue when the mouse moves over the page, its other labels or the disclaimer.
class TARNWELL_EXPORT xAbout : public PropertyPage
{
    Q_OBJECT
public:
    /// The page, captioned "About".
    explicit xAbout(QWidget *parent = nullptr);
    ~xAbout() override;

    /** @name What the page shows, as this build has it */
    ///@{
    static QString versionText(); ///< "Version M.m.r"
    static QString supportAddress(); ///< the e-mail address, without "mailto:"
    static QString webSite(); ///< the web site's address
    /// The disclaimer with its lines ended by "\\r\\n", the last one included.
    static QString disclaimer();
    ///@}

protected:
    /// @cond INTERNAL
    void fill(QObject *control) override;
    void apply(QObject *control) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

    /// @endcond

private:
    void showNormalLinks();

    Pages::LinkLabel *m_mail;
    Pages::LinkLabel *m_web;
    QList<QObject *> m_normalAreas;
};

} // namespace Tarnwell
