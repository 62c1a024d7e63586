// The hook swallows context-menu requests and nothing else.
#include "shared/contextmenuhook.h"

#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

using Tarnwell::ContextMenuHook;

namespace {

// Counts the events that get past the hook to the widget's own handlers.
class CountingEdit : public QLineEdit
{
public:
    int contextMenus = 0;
    int keys = 0;
    int other = 0;

protected:
    bool event(QEvent *e) override
    {
        if (e->type() == QEvent::ContextMenu)
            ++contextMenus;
        else if (e->type() == QEvent::KeyPress)
            ++keys;
        else if (e->type() == QEvent::FocusIn || e->type() == QEvent::EnabledChange)
            ++other;
        return QLineEdit::event(e);
    }
};

void sendContextMenu(QWidget *w)
{
    QContextMenuEvent e(QContextMenuEvent::Mouse, QPoint(2, 2), w->mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(w, &e);
}

TEST(ContextMenuHook, SwallowsContextMenuOnlyWhileHooked)
{
    CountingEdit edit;
    struct {
        const char *step;
        std::function<void()> action;
        bool hooked;
        int contextMenus;
    } rows[] = {
        {"unhooked", [] {}, false, 1},
        {"installed", [&] { ContextMenuHook::InstallWindowHook(&edit); }, true, 1},
        {"installed twice stays one hook", [&] { ContextMenuHook::InstallWindowHook(&edit); }, true, 1},
        {"removed", [&] { ContextMenuHook::RemoveWindowHook(&edit); }, false, 2},
    };
    for (const auto &row : rows) {
        row.action();
        sendContextMenu(&edit);
        EXPECT_EQ(ContextMenuHook::isHooked(&edit), row.hooked) << row.step;
        EXPECT_EQ(edit.contextMenus, row.contextMenus) << row.step;
    }
}

TEST(ContextMenuHook, OtherEventsPassUnchanged)
{
    CountingEdit edit;
    ContextMenuHook::InstallWindowHook(&edit);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_B, Qt::NoModifier, QStringLiteral("b"));
    QCoreApplication::sendEvent(&edit, &key);
    edit.setEnabled(false);
    EXPECT_EQ(edit.keys, 1);
    EXPECT_EQ(edit.text(), "b");
    EXPECT_GE(edit.other, 1);
    ContextMenuHook::RemoveWindowHook(&edit);
}

TEST(ContextMenuHook, SecondWidgetTakesTheSlotAndEachRemovalUnhooksItsOwn)
{
    auto first = std::make_unique<CountingEdit>();
    CountingEdit second;
    ContextMenuHook::InstallWindowHook(first.get());
    ContextMenuHook::InstallWindowHook(&second);
    EXPECT_EQ(ContextMenuHook::hookedWidget(), &second);
    ContextMenuHook::RemoveWindowHook(first.get());
    sendContextMenu(first.get());
    sendContextMenu(&second);
    EXPECT_EQ(first->contextMenus, 1);
    EXPECT_EQ(second.contextMenus, 0) << "removing the first must not unhook the second";
    first.reset(); // a hooked widget may die first
    ContextMenuHook::RemoveWindowHook(&second);
    EXPECT_EQ(ContextMenuHook::hookedWidget(), nullptr);
}

} // namespace
