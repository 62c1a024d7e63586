#pragma once
#include <tarnwell/propertypage.h>

namespace Tarnwell {

// The "General" page of a TimeBox: edits the first selected control's settings.
class TARNWELL_EXPORT xGeneralTB : public PropertyPage
{
    Q_OBJECT
public:
    explicit xGeneralTB(QWidget *parent = nullptr);
    ~xGeneralTB() override;

protected:
    void fill(QObject *control) override;
    void apply(QObject *control) override;
};

} // namespace Tarnwell
