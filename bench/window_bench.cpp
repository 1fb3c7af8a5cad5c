#include "app/surroundings.h"
#include "editor/form_plg.h"
#include "ratio_reporter.h"

#include <QApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

/// Showing another unit in the real main window, from the command until it is painted.
namespace {

using namespace brindle;

constexpr QSize Desktop(1920, 1080);

/// Counts how often a widget is painted, so that no benchmark measures a window that stays as it is.
class PaintCounter : public QObject {
  public:
    explicit PaintCounter(QWidget* watched) : QObject(watched) { watched->installEventFilter(this); }

    [[nodiscard]] benchmark::IterationCount Painted() const { return painted_; }

    bool eventFilter(QObject* watched, QEvent* event) override {
        painted_ += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

  private:
    benchmark::IterationCount painted_ = 0;
};

/// Shows `units` by turns, one an iteration, until the window has laid itself out and painted what changed.
/// With no units, paints the whole window again as it is.
void ShowByTurns(benchmark::State& state, Editor& editor, formPLG& window, const std::vector<int>& units) {
    using Clock = std::chrono::steady_clock;
    const PaintCounter diagram(window.findChild<QWidget*>(QStringLiteral("picDiagram")));
    std::size_t turn = 0;
    Clock::duration slowest{};
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        if (units.empty()) {
            window.repaint();
        } else {
            editor.mnuTimerLatch_Click(units.at(turn++ % units.size()));
            QCoreApplication::sendPostedEvents(); // among them the request to lay out and that to paint
        }
        slowest = std::max(slowest, Clock::now() - start);
    }
    state.counters["slowest_ms"] = std::chrono::duration<double, std::milli>(slowest).count();
    if (diagram.Painted() < state.iterations()) {
        state.SkipWithError("the unit was not painted");
    }
}

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    int noArguments = 1; // those of the command line are the benchmark library's
    QApplication application(noArguments, argv);
    const QTemporaryDir programFolder;
    EditorSurroundings surroundings =
        RealSurroundings(programFolder.path().toStdString(), [] { return nullptr; });
    surroundings.CommandLine = BRINDLE_EXAMPLES "/pilot_supervision.pl";
    surroundings.ShowMessageBox = [](const MessageBox& box) {
        std::fprintf(stderr, "%s\n", box.Text.c_str());
        return MessageAnswer::Ok;
    };
    Editor editor(surroundings);
    editor.Form_Initialize();
    formPLG window(editor);
    window.LoadAndShow();
    window.resize(Desktop);
    QCoreApplication::processEvents();
    if (window.size() != Desktop || editor.Config().FilePath != surroundings.CommandLine) {
        std::fprintf(stderr, "cannot show the example at %d by %d\n", Desktop.width(), Desktop.height());
        return 1;
    }

    const auto add = [&](const char* name, const std::vector<int>& units) {
        const auto run = [&editor, &window, units](benchmark::State& state) {
            ShowByTurns(state, editor, window, units);
        };
        benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond);
    };
    add("RepaintShownUnit", {});
    add("ShowOtherTimer", {1, 2});
    add("ShowTimerThenLatch", {1, 8});
    add("ShowEveryUnit", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    return RunBenchmarks(argc, argv,
                         {{"ShowOtherTimer", "RepaintShownUnit"},
                          {"ShowTimerThenLatch", "RepaintShownUnit"},
                          {"ShowEveryUnit", "RepaintShownUnit"}});
}
