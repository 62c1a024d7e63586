#pragma once
#include <tarnwell/propertypage.h>

namespace Tarnwell {

// The "About" page shown beside every control's General page: the library's version, the
// disclaimer and where to write and read about it. It edits no property.
class TARNWELL_EXPORT xAbout : public PropertyPage
{
    Q_OBJECT
public:
    explicit xAbout(QWidget *parent = nullptr);
    ~xAbout() override;

protected:
    void fill(QObject *control) override;
    void apply(QObject *control) override;
};

} // namespace Tarnwell
