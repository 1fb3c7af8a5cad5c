#include "editor/form_group_editing_functions.h"
#include "editor/form_plg.h"
#include "editor/menu_tree.h"
#include "platform/foreign_text.h"
#include "platform/help_engine.h"
#include "platform/printer_dialogs.h"
#include "report/form_print_brindle.h"
#include "settings/form_about.h"
#include "settings/form_help.h"
#include "settings/form_home_dir.h"
#include "settings/form_vdr810_options_brindle.h"
#include "settings/help.h"

#include <QAction>
#include <QMenu>

/// The dialogs that the main window's menus open, each made when it is first opened, and the menu items that
/// come from the settings file.
namespace brindle {

void formPLG::OpenGroupEditing() {
    if (groupEditing_ == nullptr) {
        groupEditing_ = new formGroupEditingFunctions(editor_, this);
    }
    groupEditing_->OpenAtPlace();
}

PrintSurroundings formPLG::SurroundingsOfPrint() {
    const EditorSurroundings& outside = editor_.Surroundings();
    PrintSurroundings print;
    print.Config = [this]() -> const LogicConfig& { return editor_.Config(); };
    print.Catalogue = [this]() -> const SignalCatalogue& { return editor_.Catalogue(); };
    print.ReportStart = [this] { return editor_.ReportStart(); };
    print.Title = [this] { return editor_.Title(); };
    print.Shown = [this] { return UnitPlace{editor_.Shown().Group, editor_.Shown().Unit}; };
    print.Show = [this](const UnitPlace& unit) {
        editor_.mnuGroup_Click(unit.Group);
        editor_.mnuTimerLatch_Click(unit.Unit);
    };
    print.BeginPrinting = [this] { editor_.BeginPrinting(); };
    print.EndPrinting = [this] { editor_.EndPrinting(); };
    print.Picture = [this] { return Picture(); };
    print.RestorePlacement = [this](const PlacedForm& form) { editor_.RestorePlace(form, PrintWindowKeys); };
    print.SavePlacement = [this](const PlacedForm& form) { editor_.SavePlace(form, PrintWindowKeys); };
    print.Outside = {outside.Files, outside.RunFileDialog, outside.ShowMessageBox};
    print.Printers = SystemPrinters();
    return print;
}

void formPLG::OpenPrint() {
    editor_.mnuPrint_Click();
    if (print_ == nullptr) {
        print_ = new formPrintBrindle(SurroundingsOfPrint(), this);
    }
    print_->OpenAtPlace();
}

void formPLG::OpenHomeDir() {
    if (homeDir_ == nullptr) {
        const EditorSurroundings& outside = editor_.Surroundings();
        homeDir_ = new formHomeDir(
            outside.Folders, outside.ShowMessageBox,
            [this](const std::string& folder) { editor_.ChooseHomeDirectory(folder); }, this);
    }
    homeDir_->Open(editor_.HomeDirectory());
}

void formPLG::OpenHelp() {
    const auto guide = [this] {
        if (help_ == nullptr) {
            help_ = new formHelp([this](const std::string& address) { editor_.OpenAddress(address); }, this);
        }
        help_->Open();
    };
    const EditorSurroundings& outside = editor_.Surroundings();
    ShowHelp(outside.ProgramFolder, {outside.Files, OpenWithHelpEngine, guide});
}

void formPLG::OpenAbout() {
    if (about_ == nullptr) {
        const EditorSurroundings& outside = editor_.Surroundings();
        about_ = new formAbout(
            BuildAboutText(outside.ProgramMajor, outside.ProgramMinor, outside.ProgramRevision, qVersion()),
            this);
    }
    about_->open();
}

bool formPLG::ChooseVdr810Options(Vdr810Options& options) {
    formVdr810OptionsBrindle dialog(options, editor_.Surroundings().ProgramFolder, this);
    return dialog.exec() == QDialog::Accepted;
}

void formPLG::ShowRecentFiles() {
    const std::array<std::string, RecentFileCount> captions = RecentFileCaptions(editor_.Recent());
    bool any = false;
    for (int index = 0; index < RecentFileCount; ++index) {
        const std::string& caption = captions.at(static_cast<std::size_t>(index));
        QAction* item = Action(QString::fromStdString(ElementName("mnuFileRecentFiles", index)));
        item->setVisible(!caption.empty());
        if (!caption.empty()) {
            SetForeignCaption(*item, caption);
            any = true;
        }
    }
    Action(QStringLiteral("mnuFileBar4"))->setVisible(any);
}

void formPLG::BuildWebItems() {
    const WebLinks web = editor_.Web();
    auto* pages = findChild<QMenu*>(QStringLiteral("mnuWeb"));
    int index = 0;
    for (const WebLink& page : web.Pages) {
        QAction* item = pages->addAction(QString());
        SetForeignCaption(*item, page.Caption);
        item->setObjectName(QString::fromStdString(ElementName("mnuWebPage", index++)));
        connect(item, &QAction::triggered, this, [this, page] { editor_.OpenAddress(page.Address); });
    }
    pages->menuAction()->setEnabled(index > 0);
    Connect(QStringLiteral("mnuSoftwareFTPSite"), [this] { editor_.OpenAddress(editor_.Web().FtpSite); });
}

} // namespace brindle
