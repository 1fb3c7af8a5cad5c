#include "settings/form_home_dir.h"

#include "platform/foreign_text.h"
#include "platform/input_dialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <utility>

namespace brindle {

namespace {

constexpr QSize HomeWindowSize(440, 480); // pixels; some fifteen folders

QPushButton* NewButton(const char* name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false); // Enter is Done's, whichever button was used last
    return button;
}

/// A list whose rows stand as deep as their folders. Its branches cannot be opened or closed, and are not
/// drawn.
class FolderTree : public QTreeWidget {
  public:
    using QTreeWidget::QTreeWidget;

  protected:
    void drawBranches(QPainter* /*painter*/, const QRect& /*rect*/,
                      const QModelIndex& /*index*/) const override {}
};

std::size_t RowOf(const QTreeWidgetItem& item) {
    return item.data(0, Qt::UserRole).toULongLong();
}

} // namespace

formHomeDir::formHomeDir(const FolderFunctions& folders, const ShowMessageBox& showMessageBox,
                         std::function<void(const std::string& folder)> homeDirectoryChosen, QWidget* owner)
    : QDialog(owner),
      chooser_({folders, showMessageBox, [this](const InputBox& box) { return ShowQtInputBox(this, box); }},
               std::move(homeDirectoryChosen)) {
    setObjectName(QStringLiteral("formHomeDir"));
    setWindowTitle(QStringLiteral("Home Directory"));
    setModal(true);
    BuildControls();
    resize(HomeWindowSize);
}

void formHomeDir::BuildControls() {
    Drive1_ = new QComboBox(this);
    Drive1_->setObjectName(QStringLiteral("Drive1"));
    connect(Drive1_, &QComboBox::activated, this, [this](int index) {
        chooser_.Drive1_Change(static_cast<std::size_t>(index));
        ShowFolders();
    });

    dirHomeDir_ = new FolderTree(this);
    dirHomeDir_->setObjectName(QStringLiteral("dirHomeDir"));
    dirHomeDir_->setHeaderHidden(true);
    dirHomeDir_->setRootIsDecorated(false);
    dirHomeDir_->setItemsExpandable(false); // a folder is opened as the whole list, not in place
    dirHomeDir_->setIndentation(14);
    dirHomeDir_->installEventFilter(this);
    connect(dirHomeDir_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        chooser_.dirHomeDir_Change(RowOf(*item));
        ShowSelected();
    });
    connect(dirHomeDir_, &QTreeWidget::itemDoubleClicked, this,
            [this](const QTreeWidgetItem* /*item*/) { PressInFolders(Qt::Key_Return); });

    txtHomeDir_ = new QLineEdit(this);
    txtHomeDir_->setObjectName(QStringLiteral("txtHomeDir"));
    txtHomeDir_->setReadOnly(true);

    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(QStringLiteral("D&rive:"), Drive1_);
    form->addRow(QStringLiteral("&Folder:"), dirHomeDir_);
    form->addRow(QStringLiteral("&Selected:"), txtHomeDir_);
    auto* column = new QVBoxLayout(this);
    column->addLayout(form, 1);
    column->addWidget(BuildButtons());
}

QWidget* formHomeDir::BuildButtons() {
    auto* strip = new QWidget(this);
    auto* newFolder = NewButton("cmdNewFolder", QStringLiteral("&New Folder..."), strip);
    connect(newFolder, &QPushButton::clicked, this, [this] {
        chooser_.cmdNewFolder_Click();
        ShowFolders();
    });
    auto* done = NewButton("cmdDone", QStringLiteral("Done"), strip);
    done->setDefault(true);
    connect(done, &QPushButton::clicked, this, [this] {
        if (chooser_.cmdDone_Click()) {
            accept();
        }
    });
    auto* cancel = NewButton("cmdCancel", QStringLiteral("Cancel"), strip);
    connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(newFolder);
    row->addStretch(1);
    row->addWidget(done);
    row->addWidget(cancel);
    return strip;
}

void formHomeDir::Open(const std::string& homeDirectory) {
    chooser_.Load(homeDirectory);
    Drive1_->clear();
    for (const std::string& drive : chooser_.Drives()) {
        Drive1_->addItem(ShownText(drive));
    }
    ShowFolders();
    dirHomeDir_->setFocus();
    const QRect desktop = screen()->availableGeometry();
    move(desktop.center() - rect().center());
    show();
}

void formHomeDir::reject() {
    chooser_.cmdCancel_Click();
    QDialog::reject();
}

bool formHomeDir::eventFilter(QObject* watched, QEvent* event) {
    if (watched == dirHomeDir_ && event->type() == QEvent::KeyPress) {
        return PressInFolders(static_cast<QKeyEvent*>(event)->key());
    }
    return QDialog::eventFilter(watched, event);
}

bool formHomeDir::PressInFolders(int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        chooser_.OpenRow(chooser_.SelectedRow());
        break;
    case Qt::Key_Backspace:
        chooser_.OpenParent();
        break;
    default:
        return false;
    }
    ShowFolders();
    return true;
}

void formHomeDir::ShowFolders() {
    const QSignalBlocker quiet(dirHomeDir_);
    dirHomeDir_->clear();
    QTreeWidgetItem* parent = dirHomeDir_->invisibleRootItem();
    for (std::size_t row = 0; row < chooser_.Rows().size(); ++row) {
        const FolderRow& folder = chooser_.Rows()[row];
        auto* item = new QTreeWidgetItem(parent, {ShownText(folder.Caption)});
        item->setData(0, Qt::UserRole, QVariant::fromValue<qulonglong>(row));
        item->setIcon(0,
                      style()->standardIcon(folder.Open ? QStyle::SP_DirOpenIcon : QStyle::SP_DirClosedIcon));
        if (row == chooser_.SelectedRow()) {
            dirHomeDir_->setCurrentItem(item);
        }
        if (folder.Open) {
            parent = item;
        }
    }
    dirHomeDir_->expandAll();
    dirHomeDir_->scrollToItem(dirHomeDir_->currentItem());
    ShowSelected();
}

void formHomeDir::ShowSelected() {
    const QString path = ShownText(chooser_.Selected());
    txtHomeDir_->setText(path);
    SetForeignToolTip(*txtHomeDir_, path);
    const std::optional<std::size_t> drive = chooser_.SelectedDrive();
    Drive1_->setCurrentIndex(drive ? static_cast<int>(*drive) : -1);
}

} // namespace brindle
