// A new control leaves nothing queued for itself (a thousand controls created and dropped before
// the event loop runs would otherwise each scan the whole queue), and the value checks that wait
// for the loop survive controls destroyed while they wait.
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include "common/testsupport.h"

#include <QPointer>
#include <QSignalSpy>

#include <functional>

namespace Tarnwell {
namespace {

// Counts the events delivered to the widgets of one control.
class Delivered : public QObject
{
public:
    explicit Delivered(QWidget *control) : m_control(control) { qApp->installEventFilter(this); }
    ~Delivered() override { qApp->removeEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_control || m_control->isAncestorOf(qobject_cast<QWidget *>(watched)))
            ++count;
        (void)event;
        return false;
    }

private:
    QWidget *m_control;
};

void sendQueuedTo(QWidget *widget)
{
    QCoreApplication::sendPostedEvents(widget, 0);
    for (QWidget *child : widget->findChildren<QWidget *>())
        QCoreApplication::sendPostedEvents(child, 0);
}

struct CreateRow { const char *name; std::function<QWidget *(QWidget *)> make; };

class Creation : public ::testing::TestWithParam<CreateRow> {};

TEST_P(Creation, LeavesNothingQueuedForTheControl)
{
    QWidget parent;
    QWidget *control = GetParam().make(&parent);
    Delivered delivered(control);
    sendQueuedTo(control);
    EXPECT_EQ(delivered.count, 0);
    // Polished all the same once shown.
    parent.show();
    EXPECT_TRUE(control->testAttribute(Qt::WA_WState_Polished));
}

INSTANTIATE_TEST_SUITE_P(Controls, Creation, ::testing::Values(
    CreateRow{"MaskBox", [](QWidget *p) { auto *b = new MaskBox(p); b->setMask(QStringLiteral("(###) ###-####")); return b; }},
    CreateRow{"NumberBox", [](QWidget *p) { return new NumberBox(p); }},
    CreateRow{"DateBox", [](QWidget *p) { return new DateBox(p); }},
    CreateRow{"TimeBox", [](QWidget *p) { return new TimeBox(p); }}),
    TestSupport::rowName);

// Showing the check box of a control whose box is cleared takes its value away with no Change, so
// the value's notify waits for the loop. Row: which of three waiting boxes is destroyed, before the loop or by the
// first box's handler.
struct WaitRow { const char *name; int destroyed; bool byHandler; };

class WaitingChecks : public ::testing::TestWithParam<WaitRow> {};

TEST_P(WaitingChecks, NotifyEachLiveControlOnce)
{
    const WaitRow &row = GetParam();
    QWidget parent;
    std::vector<QPointer<NumberBox>> boxes;
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    for (int i = 0; i < 3; ++i) {
        auto *box = new NumberBox(&parent);
        box->setValue(5);
        box->setChecked(false);
        boxes.emplace_back(box);
        spies.push_back(std::make_unique<QSignalSpy>(box, &NumberBox::valueChanged));
    }
    for (auto &box : boxes)
        box->setCheckBox(true);
    if (row.byHandler) {
        QObject::connect(boxes[0], &NumberBox::valueChanged, &parent,
                         [&] { delete boxes[row.destroyed].data(); });
    } else {
        delete boxes[row.destroyed].data();
    }
    for (const auto &spy : spies)
        EXPECT_EQ(spy->count(), 0) << "nothing before the loop runs";
    QCoreApplication::processEvents();
    for (int i = 0; i < 3; ++i) {
        if (!boxes[i])
            continue;
        EXPECT_EQ(spies[i]->count(), 1) << "box " << i;
        EXPECT_FALSE(spies[i]->last().at(0).isValid());
    }
}

INSTANTIATE_TEST_SUITE_P(Table, WaitingChecks, ::testing::Values(
    WaitRow{"FirstGoneBeforeTheLoop", 0, false}, WaitRow{"MiddleGoneBeforeTheLoop", 1, false},
    WaitRow{"LastGoneByTheFirstHandler", 2, true}), TestSupport::rowName);

} // namespace
} // namespace Tarnwell
