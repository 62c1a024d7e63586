// Long composed text (an input method's commit) costs time in proportion to its length: typed
// one character at a time, each a relayout of the whole text, 16,384 characters took seconds
// and four times as many took sixteen times as long.
#include <tarnwell/date.h>
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>

#include "common/testsupport.h"

#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QLineEdit>

#include <functional>

using namespace Tarnwell;
using TestSupport::rowName;

namespace {

struct LongRow {
    const char *name;
    std::function<ControlFrame *(QWidget *)> make;
    char16_t typed;        // the character committed, many times over
    int keep;              // every character but one in `keep` is cancelled by the host
    qsizetype expectedSize; // -1: as many as the line edit holds
};
class LongCommit : public WidgetFixture, public ::testing::WithParamInterface<LongRow> {};

constexpr qsizetype CommitLength = 65536;

TEST_P(LongCommit, TakesTimeInProportionToItsLength)
{
    const LongRow &row = GetParam();
    ControlFrame *control = row.make(window.get());
    showAndFocus(control);
    auto *text = control->findChild<QLineEdit *>(QStringLiteral("Text1"));
    qsizetype raised = 0;
    QObject::connect(control, &ControlFrame::keyPress, [&](short &k) {
        if (++raised % row.keep != 0)
            k = 0;
    });
    QInputMethodEvent commit;
    commit.setCommitString(QString(CommitLength, QChar(row.typed)));
    QElapsedTimer timer;
    timer.start();
    QCoreApplication::sendEvent(QApplication::focusWidget(), &commit);
    const qint64 elapsed = timer.elapsed();

    EXPECT_EQ(raised, CommitLength) << "each character is raised as a typed one";
    const qsizetype passed = CommitLength / row.keep;
    EXPECT_EQ(text->text().size(), row.expectedSize < 0 ? qMin<qsizetype>(passed, text->maxLength()) : row.expectedSize);
    // Quadratic work would take minutes; linear work takes well under a second, also with
    // the sanitizers.
    EXPECT_LT(elapsed, 4000) << "ms for " << CommitLength << " characters";
}

INSTANTIATE_TEST_SUITE_P(Composition, LongCommit, ::testing::Values(
    LongRow{"FreeText", [](QWidget *p) { return new MaskBox(p); }, u'x', 1, -1},
    LongRow{"FreeTextMostlyCancelled", [](QWidget *p) { return new MaskBox(p); }, u'x', 3, -1},
    LongRow{"MaskedFillsItsPositions", [](QWidget *p) {
                auto *b = new MaskBox(p);
                b->setMask(QStringLiteral("(###) ###-####"));
                return b;
            }, u'5', 1, 14},
    LongRow{"DateBoxWithAnUnknownFormat", [](QWidget *p) {
                // Shown with its display pattern, which has no mask, then left without a format.
                auto *b = new DateBox(p);
                b->setValue(QVariant::fromValue(Date::fromYmd(2024, 3, 7)));
                b->setFormat(99);
                return b;
            }, u'7', 1, -1}), rowName);

} // namespace
