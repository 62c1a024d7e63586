// DateBox against the closest Qt widget, QDateEdit (dd/MM/yyyy), with the same event delivery:
// QKeyEvents sent to the widget that has the focus (the date box's inner line edit, the date edit
// itself, which hands them to its line edit). Each benchmark times both sides in the
// same iterations and reports their ratio (DateBox time over QDateEdit time).
#include <tarnwell/clock.h>
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>

#include "sidebyside.h"

#include <QApplication>
#include <QDateEdit>
#include <QLineEdit>
#include <QTest>

namespace {

using SideBySide::sendKey;

using SideBySide::Clock;

struct Widgets
{
    Widgets()
    {
        Tarnwell::Clock::pin(QDateTime(QDate(2024, 5, 15), QTime(9, 0)));
        window.resize(300, 100);
        box = new Tarnwell::DateBox(&window);
        box->setInterceptArrowKeys(true);
        edit = new QDateEdit(&window);
        edit->move(0, 40);
        edit->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
        edit->setWrapping(true); // every Up changes the day, as the date box's does
        boxEdit = box->findChild<Tarnwell::MaskBox *>(QStringLiteral("mdtDate"))->findChild<QLineEdit *>(QStringLiteral("Text1"));
        editEdit = edit->findChild<QLineEdit *>();
        window.show();
        window.activateWindow();
        QApplication::setActiveWindow(&window);
        (void)QTest::qWaitForWindowExposed(&window);
    }
    ~Widgets() { Tarnwell::Clock::unpin(); }

    QWidget window;
    Tarnwell::DateBox *box;
    QDateEdit *edit;
    QLineEdit *boxEdit;
    QLineEdit *editEdit;
};

// Focuses the widget with the caret on its first field; returns where its keys go.
QWidget *focusFirstField(QWidget *widget, QLineEdit *edit)
{
    widget->setFocus();
    edit->setCursorPosition(0);
    if (auto *dateEdit = qobject_cast<QDateEdit *>(widget))
        dateEdit->setSelectedSection(QDateTimeEdit::DaySection);
    return QApplication::focusWidget();
}

void typeInto(QWidget *widget, QLineEdit *edit, const QString &keys)
{
    QWidget *target = focusFirstField(widget, edit);
    for (const QChar c : keys)
        sendKey(target, c.unicode(), QString(c));
}

void stepUp(QWidget *widget, QLineEdit *edit, int times)
{
    QWidget *target = focusFirstField(widget, edit);
    for (int i = 0; i < times; ++i)
        sendKey(target, Qt::Key_Up, QString());
}

// "07032024" typed into an empty date box and over 1 January 2000 in the date edit.
void BM_DateBoxVsDateEditTyping(benchmark::State &state)
{
    Widgets w;
    const QString keys = QStringLiteral("07032024");
    Clock::duration ours{}, theirs{};
    for (auto _ : state) {
        w.box->setValue(QVariant());
        w.edit->setDate(QDate(2000, 1, 1));
        const auto t0 = Clock::now();
        typeInto(w.box, w.boxEdit, keys);
        const auto t1 = Clock::now();
        typeInto(w.edit, w.editEdit, keys);
        const auto t2 = Clock::now();
        ours += t1 - t0;
        theirs += t2 - t1;
        state.SetIterationTime(std::chrono::duration<double>(t2 - t0).count());
    }
    if (w.box->Value().value<Tarnwell::Date>() != Tarnwell::Date::fromYmd(2024, 3, 7)
        || w.edit->date() != QDate(2024, 3, 7))
        state.SkipWithError("the typed date is not 7 March 2024 in both");
    SideBySide::report(state, ours, theirs);
}
BENCHMARK(BM_DateBoxVsDateEditTyping)->UseManualTime()->Unit(benchmark::kMicrosecond);

// 365 presses of the Up arrow on the day of 1 January 2024.
void BM_DateBoxVsDateEditStepping(benchmark::State &state)
{
    Widgets w;
    Clock::duration ours{}, theirs{};
    for (auto _ : state) {
        w.box->setValue(QVariant::fromValue(Tarnwell::Date::fromYmd(2024, 1, 1)));
        w.edit->setDate(QDate(2024, 1, 1));
        const auto t0 = Clock::now();
        stepUp(w.box, w.boxEdit, 365);
        const auto t1 = Clock::now();
        stepUp(w.edit, w.editEdit, 365);
        const auto t2 = Clock::now();
        ours += t1 - t0;
        theirs += t2 - t1;
        state.SetIterationTime(std::chrono::duration<double>(t2 - t0).count());
    }
    // The date box rolls into the next months; the date edit wraps inside January.
    if (w.box->Value().value<Tarnwell::Date>() != Tarnwell::Date::fromYmd(2024, 12, 31)
        || w.edit->date() != QDate(2024, 1, 1 + 365 % 31))
        state.SkipWithError("365 steps did not land on 31 December and 25 January");
    SideBySide::report(state, ours, theirs);
}
BENCHMARK(BM_DateBoxVsDateEditStepping)->UseManualTime()->Unit(benchmark::kMillisecond);

void BM_CreateDateBoxVsDateEdit(benchmark::State &state)
{
    SideBySide::creation(
        state, [](QWidget *parent) { new Tarnwell::DateBox(parent); },
        [](QWidget *parent) { new QDateEdit(parent); });
}
BENCHMARK(BM_CreateDateBoxVsDateEdit)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
