#include "app/surroundings.h"
#include "editor/form_plg.h"
#include "ratio_reporter.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <utility>
#include <vector>

/// Showing and editing a unit in the real main window, from the command until it is painted.
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

/// One turn of a benchmark; turns count from 0.
using Turn = std::function<void(std::size_t turn)>;

/// Takes one turn an iteration, until the window has laid itself out and painted what changed. `painted` is
/// what each turn must paint.
void TakeTurns(benchmark::State& state, QWidget* painted, const Turn& take) {
    using Clock = std::chrono::steady_clock;
    const PaintCounter counter(painted);
    std::size_t turn = 0;
    Clock::duration slowest{};
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        take(turn++);
        QCoreApplication::sendPostedEvents(); // among them the request to lay out and that to paint
        slowest = std::max(slowest, Clock::now() - start);
    }
    state.counters["slowest_ms"] = std::chrono::duration<double, std::milli>(slowest).count();
    // The first turn of a run may ask for what is shown already.
    if (counter.Painted() + 1 < state.iterations()) {
        state.SkipWithError("the window was not painted");
    }
}

/// Opens a chooser that was closed before, until it is painted.
void OpenChooser(benchmark::State& state, Editor& editor, int category) {
    for (auto _ : state) {
        editor.mnuLogicCategoriesCategory_Click(category);
        QCoreApplication::processEvents();
        state.PauseTiming();
        editor.mnuLogicCategoriesCloseAll_Click();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}

/// Opens a chooser for the first time, with the making of its window.
void OpenNewChooser(benchmark::State& state, formPLG& window, const SignalCatalogue& catalogue,
                    int category) {
    std::vector<ChooserView> views;
    views.reserve(catalogue.Categories.size());
    for (int index = 0; index < static_cast<int>(catalogue.Categories.size()); ++index) {
        views.push_back(BuildChooserView(catalogue, index));
    }
    for (auto _ : state) {
        auto* chooserOwner = new QWidget(&window, Qt::Tool);
        CategoryChooserForms choosers(chooserOwner, {[](int, int) {}, [](int) {}, [](int) {}, [] {}});
        choosers.ShowViews(views);
        choosers.Show(category);
        QCoreApplication::processEvents();
        state.PauseTiming();
        delete chooserOwner;
        QCoreApplication::processEvents();
        state.ResumeTiming();
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

    const auto find = [&](const char* name) { return window.findChild<QWidget*>(QString::fromLatin1(name)); };
    const auto add = [](const char* name, QWidget* painted, const Turn& take) {
        benchmark::RegisterBenchmark(name, [=](benchmark::State& state) {
            TakeTurns(state, painted, take);
        })->Unit(benchmark::kMillisecond);
    };
    const auto show = [&editor](std::vector<int> units) {
        return [&editor, units = std::move(units)](std::size_t turn) {
            editor.mnuTimerLatch_Click(units.at(turn % units.size()));
        };
    };
    QWidget* diagram = find("picDiagram");
    add("RepaintShownUnit", diagram, [&window](std::size_t) { window.repaint(); });
    add("ShowOtherTimer", find("lblOR"), show({1, 2}));
    add("ShowTimerThenLatch", diagram, show({1, 8}));
    add("ShowEveryUnit", find("lblOR"), show({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));

    constexpr int binaryInputs = 22;
    editor.mnuGroup_Click(8);
    editor.mnuTimerLatch_Click(1);
    add("ConnectSignal", find("txtPlo(1)"), [&editor](std::size_t turn) {
        editor.cmdSelectCategory_Click(binaryInputs, static_cast<int>(turn % 2));
    });
    add("InvertInput", find("txtPlo(1)"), [&editor](std::size_t) { editor.txtPlo_DblClick(1); });
    auto* pickUp = window.findChild<QLineEdit*>(QStringLiteral("txtTimerPU"));
    add("TypeTime", pickUp, [pickUp](std::size_t turn) { pickUp->setText(QString::number(turn % 600000)); });
    auto* output = window.findChild<QCheckBox*>(QStringLiteral("cbxOutputMap(5)"));
    add("TickOutput", output, [output](std::size_t) { output->click(); });
    benchmark::RegisterBenchmark("OpenChooser", [&](benchmark::State& state) {
        OpenChooser(state, editor, binaryInputs);
    })->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("OpenNewChooser", [&](benchmark::State& state) {
        OpenNewChooser(state, window, editor.Catalogue(), binaryInputs);
    })->Unit(benchmark::kMillisecond);
    return RunBenchmarks(argc, argv,
                         {{"ShowOtherTimer", "RepaintShownUnit"},
                          {"ShowTimerThenLatch", "RepaintShownUnit"},
                          {"ShowEveryUnit", "RepaintShownUnit"},
                          {"ConnectSignal", "RepaintShownUnit"},
                          {"InvertInput", "RepaintShownUnit"},
                          {"TypeTime", "RepaintShownUnit"},
                          {"TickOutput", "RepaintShownUnit"},
                          {"OpenChooser", "RepaintShownUnit"},
                          {"OpenNewChooser", "RepaintShownUnit"}});
}
