// The hook swallows a widget's context-menu requests while that widget is hooked.
#include "shared/contextmenuhook.h"

#include "common/testsupport.h"

#include <QContextMenuEvent>
#include <QLineEdit>

using Tarnwell::ContextMenuHook;

namespace {

// Counts the context-menu events that get past the hook to the widget's own handler.
class CountingEdit : public QLineEdit
{
public:
    int contextMenus = 0;

protected:
    void contextMenuEvent(QContextMenuEvent *) override { ++contextMenus; }
};

void sendContextMenu(QWidget *w)
{
    QContextMenuEvent e(QContextMenuEvent::Mouse, QPoint(2, 2), w->mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(w, &e);
}

struct HookRow { const char *name; int installs, removals; bool hooked; };
class ContextMenuHooking : public testing::TestWithParam<HookRow> {};

TEST_P(ContextMenuHooking, SwallowsTheMenuOnlyWhileHooked)
{
    const HookRow &row = GetParam();
    CountingEdit edit;
    for (int i = 0; i < row.installs; ++i)
        ContextMenuHook::installWindowHook(&edit);
    for (int i = 0; i < row.removals; ++i)
        ContextMenuHook::removeWindowHook(&edit);
    sendContextMenu(&edit);
    EXPECT_EQ(ContextMenuHook::isHooked(&edit), row.hooked);
    EXPECT_EQ(edit.contextMenus, row.hooked ? 0 : 1);
    ContextMenuHook::removeWindowHook(&edit);
}

INSTANTIATE_TEST_SUITE_P(Table, ContextMenuHooking, testing::Values(
    HookRow{"Unhooked", 0, 0, false}, HookRow{"Installed", 1, 0, true},
    HookRow{"InstalledTwiceIsOneHook", 2, 1, false}, HookRow{"Removed", 1, 1, false}), TestSupport::rowName);

TEST(ContextMenuHook, SecondWidgetTakesTheSlotAndEachRemovalUnhooksItsOwn)
{
    auto first = std::make_unique<CountingEdit>();
    CountingEdit second;
    ContextMenuHook::installWindowHook(first.get());
    ContextMenuHook::installWindowHook(&second);
    EXPECT_EQ(ContextMenuHook::hookedWidget(), &second);
    ContextMenuHook::removeWindowHook(first.get());
    sendContextMenu(first.get());
    sendContextMenu(&second);
    EXPECT_EQ(first->contextMenus, 1);
    EXPECT_EQ(second.contextMenus, 0) << "removing the first must not unhook the second";
    first.reset(); // a hooked widget may die first
    ContextMenuHook::removeWindowHook(&second);
    EXPECT_EQ(ContextMenuHook::hookedWidget(), nullptr);
}

} // namespace
