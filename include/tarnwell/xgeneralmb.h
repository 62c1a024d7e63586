#pragma once
#include <tarnwell/propertypage.h>

namespace Tarnwell {

// The "General" page of a MaskBox: edits the first selected control's settings.
class TARNWELL_EXPORT xGeneralMB : public PropertyPage
{
    Q_OBJECT
public:
    explicit xGeneralMB(QWidget *parent = nullptr);
    ~xGeneralMB() override;

protected:
    void fill(QObject *control) override;
    void apply(QObject *control) override;
};

} // namespace Tarnwell
