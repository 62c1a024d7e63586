// The drag-and-drop data object: formats in and out, on-demand data, read-only drops.
#include <tarnwell/dataobject.h>
#include <tarnwell/error.h>

#include <gtest/gtest.h>

#include <QImage>

using Tarnwell::DataObject;
using Tarnwell::Error;

namespace {

int errorOf(const std::function<void()> &f)
{
    try {
        f();
    } catch (const Error &e) {
        return e.number();
    }
    return 0;
}

TEST(DataObject, FormatsRoundTrip)
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    struct {
        const char *name;
        QVariant value;
        int format;      // 0: picked from the value
        int readFormat;
        QVariant expected;
    } rows[] = {
        {"text", QString("abc"), DataObject::CFText, DataObject::CFText, QString("abc")},
        {"text picked from value", QString("xyz"), 0, DataObject::CFText, QString("xyz")},
        {"number as text", 42, DataObject::CFText, DataObject::CFText, QString("42")},
        {"bitmap", image, 0, DataObject::CFBitmap, image},
        {"files", QStringList{"/tmp/a.txt"}, 0, DataObject::CFFiles, QStringList{"/tmp/a.txt"}},
        {"rtf", QString("{\\rtf1}"), DataObject::CFRTF, DataObject::CFRTF, QString("{\\rtf1}")},
    };
    for (const auto &row : rows) {
        DataObject data;
        data.SetData(row.value, row.format);
        EXPECT_TRUE(data.GetFormat(row.readFormat)) << row.name;
        EXPECT_EQ(data.GetData(row.readFormat), row.expected) << row.name;
        data.Clear();
        EXPECT_FALSE(data.GetFormat(row.readFormat)) << row.name;
        EXPECT_FALSE(data.GetData(row.readFormat).isValid()) << row.name;
    }
}

TEST(DataObject, RefusesWhatItCannotCarry)
{
    DataObject data;
    QMimeData incoming;
    incoming.setText("dropped");
    DataObject dropped(&incoming);
    struct {
        const char *name;
        std::function<void()> call;
        int number;
    } rows[] = {
        {"unknown format", [&] { data.SetData(QString("x"), 77); }, 380},
        {"value kind not guessable", [&] { data.SetData(3.5, 0); }, 380},
        {"bitmap from a number", [&] { data.SetData(1, DataObject::CFBitmap); }, 380},
        {"reading an unknown format", [&] { data.GetData(77); }, 380},
        {"writing a drop", [&] { dropped.SetData(QString("x"), DataObject::CFText); }, 387},
        {"clearing a drop", [&] { dropped.Clear(); }, 387},
    };
    for (const auto &row : rows)
        EXPECT_EQ(errorOf(row.call), row.number) << row.name;
    EXPECT_EQ(dropped.GetData(DataObject::CFText), QString("dropped"));
}

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
