#pragma once
// The "Customer order" form: labelled fields in a column, each with a unique name that the event
// log and the saved file use.
#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

class QFormLayout;

namespace Tarnwell::Demo {

class DemoForm : public QWidget
{
    Q_OBJECT
public:
    explicit DemoForm(QWidget *parent = nullptr);
    ~DemoForm() override;

    // Adds a field in one line: `form->add<Tarnwell::MaskBox>(tr("&Telephone"), "mskTelephone")`.
    // The label's mnemonic focuses the field.
    template <class Field>
    Field *add(const QString &label, const QString &name)
    {
        auto *field = new Field(this);
        return addField(label, name, field) ? field : nullptr;
    }
    // Takes ownership of `field`; a name already on the form is refused (returns false) so that
    // the log and the saved file stay unambiguous.
    bool addField(const QString &label, const QString &name, QWidget *field);

    const QList<QWidget *> &fields() const { return m_fields; }
    QWidget *field(const QString &name) const;

    // A field's number (its Value, or a placeholder's text; 0 when there is none) and the text
    // it shows.
    static double numberOf(const QWidget *field);
    static QString textOf(const QWidget *field);

    // Design mode is the host's "user mode off": fields stop taking input and the form shows a
    // grid, as a form designer would.
    void setDesignMode(bool design);
    bool designMode() const { return m_designMode; }

    // Types `text` into a field with real key events, as a user would: the field's own key
    // handling and its events run. Returns false for a field that cannot take keys.
    bool typeText(QWidget *field, const QString &text);

    // Types a complete sample order into the fields, key by key.
    void typeSampleOrder();
    static QStringList sampleFieldNames();

public slots:
    // Amount is Price x Quantity, kept up to date as either changes.
    void updateTotals();

signals:
    void fieldAdded(QWidget *field, const QString &name);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void buildCustomerOrder();
    void addNumberFields();
    void addScheduleFields();

    QFormLayout *m_layout;
    QList<QWidget *> m_fields;
    bool m_designMode = false;
    bool m_updatingTotals = false;
};

} // namespace Tarnwell::Demo
