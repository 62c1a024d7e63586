// Saving and loading must lose nothing, and a bad file must change nothing.
#include "demoform.h"
#include "formdocument.h"

#include <tarnwell/error.h>
#include <tarnwell/propertybag.h>

#include "common/testsupport.h"

#include <QApplication>
#include <QTest>

#include <QLineEdit>

namespace {

using Tarnwell::Demo::DemoForm;
using Tarnwell::Demo::FormDocument;

// A stand-in control persisting through the same invokables the library's controls have; it
// refuses a Caption of "refuse" as a control refuses a bad property value.
class BagControl : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;
    Q_INVOKABLE void WriteProperties(Tarnwell::PropertyBag &bag)
    {
        bag.WriteProperty(QStringLiteral("Caption"), caption, QString());
        bag.WriteProperty(QStringLiteral("Count"), count, 0);
    }
    Q_INVOKABLE void ReadProperties(Tarnwell::PropertyBag &bag)
    {
        const QString newCaption = bag.ReadProperty(QStringLiteral("Caption"), QString()).toString();
        if (newCaption == QLatin1String("refuse"))
            throw Tarnwell::Error(380);
        caption = newCaption;
        count = bag.ReadProperty(QStringLiteral("Count"), 0).toInt();
    }
    QString caption;
    int count = 0;
};

QString textOf(const DemoForm &form, const char *name)
{
    return qobject_cast<QLineEdit *>(form.field(QString::fromLatin1(name)))->text();
}

void setText(DemoForm &form, const char *name, const QString &text)
{
    qobject_cast<QLineEdit *>(form.field(QString::fromLatin1(name)))->setText(text);
}

TEST(FormDocument, RoundTripKeepsEveryField)
{
    DemoForm form;
    auto *control = new BagControl;
    ASSERT_TRUE(form.addField(QStringLiteral("Custom"), QStringLiteral("ctlCustom"), control));
    setText(form, "txtCustomer", QStringLiteral("Zoë \"Q\" O'Neil"));
    control->caption = QStringLiteral("kept");
    control->count = 7;
    const QByteArray saved = FormDocument::save(form);

    DemoForm other;
    auto *otherControl = new BagControl;
    other.addField(QStringLiteral("Custom"), QStringLiteral("ctlCustom"), otherControl);
    setText(other, "txtCustomer", QStringLiteral("to be replaced"));
    QString error;
    QStringList skipped;
    ASSERT_TRUE(FormDocument::load(other, saved, &error, &skipped)) << error.toStdString();
    EXPECT_EQ(textOf(other, "txtCustomer"), QStringLiteral("Zoë \"Q\" O'Neil"));
    EXPECT_EQ(otherControl->caption, QStringLiteral("kept"));
    EXPECT_EQ(otherControl->count, 7);
    EXPECT_TRUE(skipped.isEmpty());

    DemoForm plain; // has no ctlCustom: that field is skipped and named
    ASSERT_TRUE(FormDocument::load(plain, saved, &error, &skipped)) << error.toStdString();
    EXPECT_EQ(skipped, QStringList{QStringLiteral("ctlCustom")});
}

TEST(FormDocument, EveryFieldOfATypedOrderComesBackIdentical)
{
    // Typed in an active window, so that the fields see the focus come and go: a date or time
    // field takes typing as its value only while it has the focus.
    DemoForm form;
    form.show();
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    form.typeSampleOrder();
    const QByteArray saved = FormDocument::save(form);

    DemoForm other;
    QString error;
    ASSERT_TRUE(FormDocument::load(other, saved, &error)) << error.toStdString();
    for (QWidget *field : form.fields()) {
        SCOPED_TRACE(field->objectName().toStdString());
        QWidget *twin = other.field(field->objectName());
        ASSERT_NE(twin, nullptr);
        EXPECT_EQ(FormDocument::bagOf(twin).toJsonText(), FormDocument::bagOf(field).toJsonText());
        EXPECT_EQ(DemoForm::textOf(twin), DemoForm::textOf(field));
    }
    EXPECT_EQ(FormDocument::save(other), saved);
}

struct BadDocumentRow { const char *name; const char *json; const char *errorPart; };

// A current document around the given "fields" list.
#define DOCUMENT(fields) R"({"application": "tarnwell-demo", "version": 1, "fields": )" fields "}"

const BadDocumentRow badDocumentRows[] = {
    {"Empty", "", "not JSON"},
    {"Truncated", R"({"application": "tarnwell-demo", "version": 1, "fields": [)", "not JSON"},
    {"Array", "[]", "not a saved"},
    {"OtherApplication", R"({"application": "other", "version": 1, "fields": []})", "not a saved"},
    {"NewerVersion", R"({"application": "tarnwell-demo", "version": 2, "fields": []})", "unsupported version 2"},
    {"VersionAsText", R"({"application": "tarnwell-demo", "version": "1", "fields": []})", "unsupported version"},
    {"NoFields", R"({"application": "tarnwell-demo", "version": 1})", "\"fields\""},
    {"FieldNotObject", DOCUMENT("[3]"), "needs a \"name\""},
    {"FieldWithoutName", DOCUMENT(R"([{"properties": []}])"), "needs a \"name\""},
    {"PropertiesNotList", DOCUMENT(R"([{"name": "txtCustomer", "properties": {"Text": "x"}}])"), "needs a \"name\""},
    // The first entry is valid: it must not be applied when a later one is bad.
    {"LaterEntryBad", DOCUMENT(R"([{"name": "txtCustomer", "properties": []}, {"name": "mskTelephone"}])"),
     "needs a \"name\""},
    {"DataNotList", DOCUMENT(R"([{"name": "txtCustomer", "properties": [], "data": "x"}])"), "\"data\" is not a list"},
    {"Duplicate", DOCUMENT(R"([{"name": "txtCustomer", "properties": []}, {"name": "txtCustomer", "properties": []}])"),
     "appears twice"},
};
class BadDocumentTable : public ::testing::TestWithParam<BadDocumentRow> {};

TEST_P(BadDocumentTable, IsRefusedAndChangesNothing)
{
    DemoForm form;
    setText(form, "txtCustomer", QStringLiteral("before"));
    QString error;
    EXPECT_FALSE(FormDocument::load(form, QByteArray(GetParam().json), &error));
    EXPECT_TRUE(error.contains(QString::fromUtf8(GetParam().errorPart))) << error.toStdString();
    EXPECT_EQ(textOf(form, "txtCustomer"), QStringLiteral("before"));
}

INSTANTIATE_TEST_SUITE_P(Load, BadDocumentTable, ::testing::ValuesIn(badDocumentRows), TestSupport::rowName);

TEST(FormDocument, AFieldRefusingItsPropertiesRollsBackTheOthers)
{
    DemoForm form;
    auto *control = new BagControl;
    form.addField(QStringLiteral("Custom"), QStringLiteral("ctlCustom"), control);
    control->caption = QStringLiteral("original");
    setText(form, "txtCustomer", QStringLiteral("before"));

    // txtCustomer comes first in the file and is applied before ctlCustom refuses.
    const QByteArray json = R"({"application": "tarnwell-demo", "version": 1, "fields": [
        {"name": "txtCustomer", "properties": )"
        + Tarnwell::Demo::FormDocument::bagOf(form.field(QStringLiteral("txtCustomer"))).toJsonText()
              .replace("before", "after")
        + R"(}, {"name": "ctlCustom", "properties": )"
        + [] {
              Tarnwell::PropertyBag bag;
              bag.WriteProperty(QStringLiteral("Caption"), QStringLiteral("refuse"), QString());
              return bag.toJsonText();
          }()
        + "}]}";
    QString error;
    EXPECT_FALSE(FormDocument::load(form, json, &error));
    EXPECT_TRUE(error.contains(QStringLiteral("ctlCustom"))) << error.toStdString();
    EXPECT_EQ(textOf(form, "txtCustomer"), QStringLiteral("before"));
    EXPECT_EQ(control->caption, QStringLiteral("original"));
}

} // namespace

#include "formdocument_test.moc"
