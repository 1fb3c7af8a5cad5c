#include "app/surroundings.h"
#include "editor/form_plg.h"
#include "editor/gate_rows.h"
#include "files/whole_file.h"
#include "ratio_reporter.h"
#include "report/picture_page_painter.h"
#include "report/print_to_file.h"

#include <QApplication>
#include <QBuffer>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <functional>

/// Printing all 80 units: their report into a file on the disk, and their pictures into a PDF file in memory.
namespace {

using namespace brindle;

constexpr QSize Desktop(1920, 1080);

void ShowUnit(Editor& editor, const UnitPlace& unit) {
    editor.mnuGroup_Click(unit.Group);
    editor.mnuTimerLatch_Click(unit.Unit);
    QCoreApplication::processEvents();
}

UnitReportRequest ReportStart(const LogicConfig& config) {
    return {1, 1, config.FilePath, "5/4/2001", "10:12:33 AM", false, GateRowsShown(config.Version)};
}

/// Shows and draws all units as the print dialog does; returns the size of the file.
qint64 PrintPictures(Editor& editor, formPLG& window, const std::vector<UnitPlace>& units) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&file);
        writer.setPageOrientation(QPageLayout::Landscape);
        QPainter painter(&writer);
        PicturePagePainter pages(writer, painter);
        PrintRun run;
        run.Show = [&](const UnitPlace& unit) { ShowUnit(editor, unit); };
        run.Print = [&](const UnitPlace&) {
            return pages.PrintPicture(window.windowTitle(), window.Picture());
        };
        run.Progress = [](const UnitPlace&, std::size_t, std::size_t) {};
        run.Cancelled = [] { return false; };
        if (RunPrint(units, run).Outcome != PrintOutcome::Done) {
            return 0;
        }
    }
    return file.size();
}

void Register(const char* name, const std::function<bool()>& work) {
    benchmark::RegisterBenchmark(name, [work](benchmark::State& state) {
        for (auto _ : state) {
            if (!work()) {
                state.SkipWithError("nothing was printed");
            }
        }
    })->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    int noArguments = 1; // those of the command line are the benchmark library's
    QApplication application(noArguments, argv);
    const QTemporaryDir folder;
    EditorSurroundings surroundings = RealSurroundings(folder.path().toStdString(), [] { return nullptr; });
    surroundings.CommandLine = BRINDLE_EXAMPLES "/pilot_supervision.pl";
    Editor editor(surroundings);
    editor.Form_Initialize();
    formPLG window(editor);
    window.LoadAndShow();
    window.resize(Desktop);
    for (int group = 3; group <= MaxGroups; ++group) {
        CopyGroup(editor.EditConfig(), 1, group);
    }
    QCoreApplication::processEvents();
    const std::vector<UnitPlace> units = UnitsToPrint({PrintScope::EveryGroup, {}}, editor.Config(), {1, 1});
    const std::string path = folder.filePath(QStringLiteral("report.txt")).toStdString();
    const FileSystem disk = RealFileSystem();
    const std::string ready =
        ReportText(editor.Config(), editor.Catalogue(), ReportStart(editor.Config()), units);

    Register("PrintAllUnitsToFile", [&] {
        const PrintFileWorld world{disk,
                                   [&](const FileDialogRequest&) {
                                       return FileDialogAnswer{path, "report.txt", 1};
                                   },
                                   [](const MessageBox&) { return MessageAnswer::Ok; }};
        PrintToFile(world, editor.Config().FileTitle, [&] {
            return ReportText(editor.Config(), editor.Catalogue(), ReportStart(editor.Config()), units);
        });
        return QFileInfo(QString::fromStdString(path)).size() == static_cast<qint64>(ready.size());
    });
    Register("WriteReadyText", [&] { return !ReplaceWholeFile(disk, path, ready).Failed(); });
    Register("PrintAllPictures", [&] { return PrintPictures(editor, window, units) > 0; });
    Register("ShowAllUnits", [&] {
        for (const UnitPlace& unit : units) {
            ShowUnit(editor, unit);
        }
        return true;
    });
    return RunBenchmarks(argc, argv,
                         {{"PrintAllUnitsToFile", "WriteReadyText"}, {"PrintAllPictures", "ShowAllUnits"}});
}
