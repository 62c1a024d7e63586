// The drag-and-drop data object: formats in and out, on-demand data, read-only drops.
#include <tarnwell/dataobject.h>

#include "common/testsupport.h"

#include <QImage>
#include <QMimeData>

#include <functional>

using Tarnwell::DataObject;

namespace {

QImage redSquare()
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

struct FormatRow {
    const char *name;
    QVariant value;
    int format; // 0: picked from the value
    int readFormat;
    QVariant expected;
};
class DataObjectFormats : public testing::TestWithParam<FormatRow> {};

TEST_P(DataObjectFormats, RoundTripUntilCleared)
{
    const FormatRow &row = GetParam();
    DataObject data;
    data.SetData(row.value, row.format);
    EXPECT_TRUE(data.GetFormat(row.readFormat));
    EXPECT_EQ(data.GetData(row.readFormat), row.expected);
    data.Clear();
    EXPECT_FALSE(data.GetFormat(row.readFormat));
    EXPECT_FALSE(data.GetData(row.readFormat).isValid());
}

INSTANTIATE_TEST_SUITE_P(Table, DataObjectFormats, testing::Values(
    FormatRow{"Text", QString("abc"), DataObject::CFText, DataObject::CFText, QString("abc")},
    FormatRow{"TextPickedFromValue", QString("xyz"), 0, DataObject::CFText, QString("xyz")},
    FormatRow{"NumberAsText", 42, DataObject::CFText, DataObject::CFText, QString("42")},
    FormatRow{"Bitmap", redSquare(), 0, DataObject::CFBitmap, redSquare()},
    FormatRow{"Files", QStringList{"/tmp/a.txt"}, 0, DataObject::CFFiles, QStringList{"/tmp/a.txt"}},
    FormatRow{"Rtf", QString("{\\rtf1}"), DataObject::CFRTF, DataObject::CFRTF, QString("{\\rtf1}")}),
    TestSupport::rowName);

struct RefusalRow { const char *name; std::function<void(DataObject &data, DataObject &dropped)> call; int number; };
class DataObjectRefusals : public testing::TestWithParam<RefusalRow> {};

TEST_P(DataObjectRefusals, ThrowAndLeaveADropAsItCame)
{
    DataObject data;
    QMimeData incoming;
    incoming.setText("dropped");
    DataObject dropped(&incoming);
    EXPECT_ERROR(GetParam().call(data, dropped), GetParam().number);
    EXPECT_EQ(dropped.GetData(DataObject::CFText), QString("dropped"));
}

INSTANTIATE_TEST_SUITE_P(Table, DataObjectRefusals, testing::Values(
    RefusalRow{"UnknownFormat", [](DataObject &d, DataObject &) { d.SetData(QString("x"), 77); }, 380},
    RefusalRow{"KindNotGuessable", [](DataObject &d, DataObject &) { d.SetData(3.5, 0); }, 380},
    RefusalRow{"BitmapFromANumber", [](DataObject &d, DataObject &) { d.SetData(1, DataObject::CFBitmap); }, 380},
    RefusalRow{"ReadingAnUnknownFormat", [](DataObject &d, DataObject &) { d.GetData(77); }, 380},
    RefusalRow{"WritingADrop", [](DataObject &, DataObject &drop) { drop.SetData(QString("x"), DataObject::CFText); }, 387},
    RefusalRow{"ClearingADrop", [](DataObject &, DataObject &drop) { drop.Clear(); }, 387}), TestSupport::rowName);

TEST(DataObject, DeclaredFormatIsFilledWhenRead)
{
    DataObject data;
    int requests = 0;
    data.setDataRequestHandler([&](DataObject *d, short &format) {
        ++requests;
        EXPECT_EQ(format, DataObject::CFText);
        d->SetData(QString("late"), format);
    });
    data.SetData(QVariant(), DataObject::CFText);
    EXPECT_TRUE(data.GetFormat(DataObject::CFText));
    EXPECT_EQ(requests, 0) << "declaring asks for nothing";
    EXPECT_EQ(data.GetData(DataObject::CFText), QString("late"));
    EXPECT_EQ(data.GetData(DataObject::CFText), QString("late"));
    EXPECT_EQ(requests, 1) << "a supplied format is not asked for again";
}

} // namespace
