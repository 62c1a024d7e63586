#pragma once
#include <tarnwell/propertypage.h>

namespace Tarnwell {

// The "General" page of a NumberBox: edits the first selected control's settings.
class TARNWELL_EXPORT xGeneralNB : public PropertyPage
{
    Q_OBJECT
public:
    explicit xGeneralNB(QWidget *parent = nullptr);
    ~xGeneralNB() override;

protected:
    void fill(QObject *control) override;
    void apply(QObject *control) override;
};

} // namespace Tarnwell
