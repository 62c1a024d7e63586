#pragma once
// What the General pages share: their widgets made with their documented object names and items,
// and the binding of each widget to the property it edits, so that a page's reading and writing
// are its documented orders of property names.
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <initializer_list>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QObject;
class QWidget;

namespace Tarnwell {
class ControlFrame;
}

namespace Tarnwell::Pages {

// The items of the lists every page has.
QStringList alignmentItems();   // "0 - Left Justify", ...
QStringList borderStyleItems(); // "0 - None", ...

QCheckBox *makeCheck(QWidget *parent, const char *name, const QString &caption);
// A drop-down list: the user picks one of `items`.
QComboBox *makeList(QWidget *parent, const char *name, const QStringList &items);
// A combo box: one of `items`, or text the user types.
QComboBox *makeCombo(QWidget *parent, const char *name, const QStringList &items);
QLineEdit *makeText(QWidget *parent, const char *name);
// A caption whose access key focuses `buddy`.
QLabel *makeLabel(QWidget *parent, const char *name, const QString &text, QWidget *buddy);

// Widgets bound to properties by name. Every bound widget calls `edited` when the user (or the
// page) changes it; the page decides whether that marks it changed.
class PageBindings
{
public:
    explicit PageBindings(std::function<void()> edited);

    void bind(const char *property, QCheckBox *box);        // ticked = true
    void bindIndex(const char *property, QComboBox *list);  // list index = value
    void bindText(const char *property, QComboBox *combo);  // the combo's text
    void bindText(const char *property, QLineEdit *text);
    // One of the library's own controls on the page, by its Value; its Change is the edit.
    void bindValue(const char *property, ControlFrame *control);

    // Shows `properties` of `control` in their widgets, in the given order.
    void fill(const QObject *control, std::initializer_list<const char *> properties);
    // The value the widget bound to `property` gives.
    QVariant value(const char *property) const;
    void show(const char *property, const QVariant &value);

private:
    enum class Kind { Check, Index, ComboText, LineText, ControlValue };
    struct Field {
        Kind kind;
        QObject *widget;
    };
    void add(const char *property, Kind kind, QObject *widget);

    std::function<void()> m_edited;
    QHash<QByteArray, Field> m_fields;
};

} // namespace Tarnwell::Pages
