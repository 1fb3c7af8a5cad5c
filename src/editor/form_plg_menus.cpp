#include "editor/form_plg.h"
#include "editor/menu_tree.h"
#include "platform/foreign_text.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <utility>

/// The menu bar of the main window: built from the menu tree, connected to the editor's commands.
namespace brindle {

void formPLG::BuildMenus() {
    std::map<std::string, QMenu*> menus;
    for (const MenuEntry& entry : MenuTree()) {
        const QString name = QString::fromStdString(entry.Name);
        const QString caption = QString::fromStdString(entry.Caption);
        if (entry.Kind == MenuEntryKind::Menu) {
            QMenu* menu =
                entry.Parent.empty() ? menuBar()->addMenu(caption) : menus.at(entry.Parent)->addMenu(caption);
            menu->setObjectName(name);
            menus[entry.Name] = menu;
            continue;
        }
        auto* action = new QAction(caption, this);
        action->setObjectName(name);
        actions_.insert(name, action);
        action->setSeparator(entry.Kind == MenuEntryKind::Separator);
        action->setCheckable(entry.Checkable);
        action->setVisible(entry.Visible);
        action->setEnabled(false); // until a command is connected
        menus.at(entry.Parent)->addAction(action);
    }
    for (const auto& [name, menu] : menus) {
        menu->menuAction()->setEnabled(!menu->isEmpty());
    }
    mnuLogicCategories_ = menus.at("mnuLogicCategories");
}

QAction* formPLG::Action(const QString& name) const {
    return actions_.value(name);
}

void formPLG::Connect(const QString& name, std::function<void()> command) {
    QAction* action = Action(name);
    action->setEnabled(true);
    connect(action, &QAction::triggered, this, [command = std::move(command)] { command(); });
}

void formPLG::ConnectMenus() {
    Connect(QStringLiteral("mnuNewFileVer100"), [this] { editor_.mnuNewFileVer100_Click(); });
    Connect(QStringLiteral("mnuNewFileVer230"), [this] { editor_.mnuNewFileVer230_Click(); });
    Connect(QStringLiteral("mnuFileNewVdr810"), [this] { editor_.mnuFileNewVdr810_Click(); });
    Connect(QStringLiteral("mnuOpenBin"), [this] { editor_.mnuOpenBin_Click(); });
    Connect(QStringLiteral("mnuFileSave"), [this] { editor_.mnuFileSave_Click(); });
    Connect(QStringLiteral("mnuSaveBin"), [this] { editor_.mnuSaveBin_Click(); });
    Connect(QStringLiteral("mnuHomeDir"), [this] { OpenHomeDir(); });
    Connect(QStringLiteral("mnuPrint"), [this] { OpenPrint(); });
    for (int index = 0; index < RecentFileCount; ++index) {
        Connect(QString::fromStdString(ElementName("mnuFileRecentFiles", index)),
                [this, index] { editor_.mnuFileRecentFiles_Click(index); });
    }
    Connect(QStringLiteral("mnuHelpHelp"), [this] { OpenHelp(); });
    Connect(QStringLiteral("mnuAbout"), [this] { OpenAbout(); });
    BuildWebItems();
    Connect(QStringLiteral("mnuExit"), [this] { editor_.mnuExit_Click(); });
    Connect(QStringLiteral("mnuShowNumbers"), [this] {
        editor_.mnuShowNumbers_Click();
        Action(QStringLiteral("mnuShowNumbers"))->setChecked(editor_.NumbersChecked());
    });
    Connect(QStringLiteral("mnuClearDisplayedUnit"), [this] { editor_.mnuClearDisplayedUnit_Click(); });
    Connect(QStringLiteral("mnuGroupEditingFunctions"), [this] { OpenGroupEditing(); });
    Connect(QStringLiteral("mnuLogicCategoriesLocateAll"),
            [this] { editor_.mnuLogicCategoriesLocateAll_Click(); });
    Connect(QStringLiteral("mnuLogicCategoriesCloseAll"),
            [this] { editor_.mnuLogicCategoriesCloseAll_Click(); });
    for (int category = 0; category < CategoryItems; ++category) {
        ConnectCategory(category);
    }
    for (int group = 1; group <= MaxGroups; ++group) {
        Connect(QString::fromStdString(ElementName("mnuGroup", group)),
                [this, group] { editor_.mnuGroup_Click(group); });
    }
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        Connect(QString::fromStdString(ElementName("mnuTimerLatch", unit)),
                [this, unit] { editor_.mnuTimerLatch_Click(unit); });
    }
    Action(QStringLiteral("mnuOpenBin"))->setShortcut(QKeySequence::Open);
    Action(QStringLiteral("mnuFileSave"))->setShortcut(QKeySequence::Save);
    Action(QStringLiteral("mnuPrint"))->setShortcut(QKeySequence::Print);
    Action(QStringLiteral("mnuHelpHelp"))->setShortcut(QKeySequence::HelpContents);
    Action(QStringLiteral("mnuSaveBin"))->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
}

void formPLG::ConnectCategory(int category) {
    Connect(QString::fromStdString(ElementName("mnuLogicCategoriesCategory", category)),
            [this, category] { editor_.mnuLogicCategoriesCategory_Click(category); });
}

void formPLG::AddCategoryItems() {
    for (; categoryItems_ < editor_.Choosers().Count(); ++categoryItems_) {
        const QString name =
            QString::fromStdString(ElementName("mnuLogicCategoriesCategory", categoryItems_));
        QAction* item = mnuLogicCategories_->addAction(QString());
        item->setObjectName(name);
        item->setCheckable(true);
        actions_.insert(name, item);
        ConnectCategory(categoryItems_);
    }
}

void formPLG::ShowCategories() {
    AddCategoryItems();
    const SignalCatalogue& catalogue = editor_.Catalogue();
    std::vector<ChooserView> views;
    for (int index = 0; index < categoryItems_; ++index) {
        QAction* item = Action(QString::fromStdString(ElementName("mnuLogicCategoriesCategory", index)));
        const bool known = index < editor_.Choosers().Count();
        item->setVisible(known);
        if (known) {
            const CategoryEntry& category = catalogue.Categories.at(static_cast<std::size_t>(index));
            SetForeignCaption(*item, category.Caption);
            item->setVisible(category.Visible);
            item->setEnabled(category.Enabled);
            views.push_back(BuildChooserView(catalogue, index));
        }
    }
    choosers_.ShowViews(std::move(views));
    CheckOpenChoosers();
}

void formPLG::CheckOpenChoosers() {
    const CategoryChoosers& choosers = editor_.Choosers();
    for (int index = 0; index < choosers.Count(); ++index) {
        Action(QString::fromStdString(ElementName("mnuLogicCategoriesCategory", index)))
            ->setChecked(choosers.IsOpen(index));
    }
}

} // namespace brindle
