#pragma once
// Saves a form's fields as JSON, one property bag per field, and loads them back.
//
//   {"application": "tarnwell-demo", "version": 1,
//    "fields": [{"name": "mskTelephone", "class": "Tarnwell::MaskBox", "properties": [...]}, ...]}
//
// "properties" is the field's PropertyBag as PropertyBag::toJson() writes it. A property bag keeps
// a control's settings, not what was typed into it (a MaskBox never reads its text back), so a
// field with a Value also saves it under "data", a bag holding the one key "Value", and gets it
// back after its properties.
#include <tarnwell/propertybag.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

class QWidget;

namespace Tarnwell::Demo {

class DemoForm;

class FormDocument
{
public:
    static QByteArray save(const DemoForm &form);

    // Applies a saved document to every field it names. On any error (unreadable JSON, wrong
    // structure, a field refusing its properties) it returns false with `error` set and every
    // field is left as it was. Fields the document names but the form lacks are skipped and
    // listed in `skipped`.
    static bool load(DemoForm &form, const QByteArray &json, QString *error,
                     QStringList *skipped = nullptr);

    // One field's persisted state: a control writes its own bag through WriteProperties; a
    // plain line edit keeps its text.
    static PropertyBag bagOf(QWidget *field);
    // Throws what the field's ReadProperties throws.
    static void applyBag(QWidget *field, const PropertyBag &bag);
    // The field's Value (an empty bag for a field without one), and its restoring, which throws
    // what the field's Value setter throws.
    static PropertyBag dataOf(QWidget *field);
    static void applyData(QWidget *field, const PropertyBag &data);
};

} // namespace Tarnwell::Demo
