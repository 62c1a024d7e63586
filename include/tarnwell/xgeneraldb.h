#pragma once
#include <tarnwell/propertypage.h>

namespace Tarnwell {

// The "General" page of a DateBox: edits the first selected control's settings.
class TARNWELL_EXPORT xGeneralDB : public PropertyPage
{
    Q_OBJECT
public:
    explicit xGeneralDB(QWidget *parent = nullptr);
    ~xGeneralDB() override;

protected:
    void fill(QObject *control) override;
    void apply(QObject *control) override;
};

} // namespace Tarnwell
