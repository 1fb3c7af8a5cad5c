#include "settings/form_help.h"

#include "settings/guide_browser_widget.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSplitter>
#include <QTextCursor>
#include <QTextDocument>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include <utility>

namespace brindle {

namespace {

constexpr const char* GuidePage = "qrc:/docs/guide/README.md";
constexpr QSize HelpWindowSize(950, 680); // pixels; the contents beside a page with whole pictures
constexpr int ContentsWidth = 250;        // pixels

} // namespace

formHelp::formHelp(std::function<void(const std::string& address)> openAddress, QWidget* owner)
    : QWidget(owner, Qt::Window) {
    setObjectName(QStringLiteral("formHelp"));
    setWindowTitle(QStringLiteral("Brindle Help"));
    BuildControls();
    ConnectBrowser(std::move(openAddress));
    resize(HelpWindowSize);
    txtHelp_->ShowPage(QUrl(QString::fromLatin1(GuidePage)));
}

QToolButton* formHelp::NewTool(const char* name, const QString& caption, const QString& tip) {
    auto* button = new QToolButton(this);
    button->setObjectName(QString::fromLatin1(name));
    button->setText(caption);
    button->setToolTip(tip);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

QWidget* formHelp::BuildBar() {
    cmdBack_ = NewTool("cmdBack", QStringLiteral("&Back"), QStringLiteral("Back (Alt+Left)"));
    cmdBack_->setEnabled(false);
    txtSearch_ = new QLineEdit(this);
    txtSearch_->setObjectName(QStringLiteral("txtSearch"));
    txtSearch_->setPlaceholderText(QStringLiteral("Search the guide (Ctrl+F)"));
    txtSearch_->setAccessibleName(QStringLiteral("Search the guide"));
    txtSearch_->setClearButtonEnabled(true);
    connect(txtSearch_, &QLineEdit::textChanged, this, [this] { lblFound_->clear(); });
    auto* next = NewTool("cmdFindNext", QStringLiteral("&Next"), QStringLiteral("Find the next place (F3)"));
    connect(next, &QToolButton::clicked, this, [this] { Find(false); });
    auto* previous = NewTool("cmdFindPrevious", QStringLiteral("&Previous"),
                             QStringLiteral("Find the place before (Shift+F3)"));
    connect(previous, &QToolButton::clicked, this, [this] { Find(true); });
    lblFound_ = new QLabel(this);
    lblFound_->setTextFormat(Qt::PlainText);
    lblFound_->setObjectName(QStringLiteral("lblFound"));
    lblFound_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("Not found.")) + 8);

    auto* bar = new QWidget(this);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(cmdBack_);
    row->addStretch(1);
    row->addWidget(lblFound_);
    row->addWidget(txtSearch_, 1);
    row->addWidget(next);
    row->addWidget(previous);
    return bar;
}

void formHelp::BuildControls() {
    lstContents_ = new QListWidget(this);
    lstContents_->setObjectName(QStringLiteral("lstContents"));
    lstContents_->setAccessibleName(QStringLiteral("Contents"));
    lstContents_->setSpacing(2);
    lstContents_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // a long heading ends in dots
    txtHelp_ = new GuideBrowserWidget(this);
    txtHelp_->setObjectName(QStringLiteral("txtHelp"));
    txtHelp_->setAccessibleName(QStringLiteral("Guide"));
    auto* halves = new QSplitter(this);
    halves->addWidget(lstContents_);
    halves->addWidget(txtHelp_);
    halves->setSizes({ContentsWidth, HelpWindowSize.width() - ContentsWidth});
    halves->setStretchFactor(1, 1);
    halves->setChildrenCollapsible(false);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 8, 8, 8);
    column->addWidget(BuildBar());
    column->addWidget(halves, 1);
}

void formHelp::ConnectBrowser(std::function<void(const std::string& address)> openAddress) {
    connect(cmdBack_, &QToolButton::clicked, txtHelp_, &QTextBrowser::backward);
    connect(txtHelp_, &QTextBrowser::backwardAvailable, cmdBack_, &QWidget::setEnabled);
    connect(txtHelp_, &QTextBrowser::sourceChanged, this, [this](const QUrl& place) { ShowContents(place); });
    connect(txtHelp_, &QTextBrowser::anchorClicked, this,
            [openAddress = std::move(openAddress)](const QUrl& link) {
                if (link.scheme() != QLatin1String("qrc")) {
                    openAddress(link.toString(QUrl::FullyEncoded).toStdString());
                }
            });
    connect(lstContents_, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem* item) { ShowChapter(lstContents_->row(item)); });
    connect(lstContents_, &QListWidget::itemActivated, this,
            [this](const QListWidgetItem* item) { ShowChapter(lstContents_->row(item)); });
}

void formHelp::Open() {
    show();
    raise();
    activateWindow();
    txtHelp_->setFocus();
}

void formHelp::ShowContents(const QUrl& place) {
    if (listedPage_ != place.path()) { // not in the midst of a click on it
        listedPage_ = place.path();
        lstContents_->clear();
        for (const GuideHeading& heading : txtHelp_->Headings()) {
            const QString indent(qsizetype{2} * (heading.Level - 1), QLatin1Char(' '));
            auto* item = new QListWidgetItem(indent + heading.Text, lstContents_);
            item->setData(Qt::UserRole, heading.Anchor);
        }
    }
    lstContents_->setCurrentRow(0);
    for (int row = 1; row < lstContents_->count(); ++row) {
        if (lstContents_->item(row)->data(Qt::UserRole).toString() == place.fragment()) {
            lstContents_->setCurrentRow(row);
        }
    }
}

void formHelp::ShowChapter(int row) {
    QUrl place = txtHelp_->source();
    place.setFragment(lstContents_->item(row)->data(Qt::UserRole).toString());
    txtHelp_->ShowPage(place);
}

void formHelp::Find(bool backward) {
    const QString text = txtSearch_->text();
    if (text.isEmpty()) {
        txtSearch_->setFocus();
        return;
    }
    const QTextDocument& page = *txtHelp_->document();
    const auto direction = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    QTextCursor found = page.find(text, txtHelp_->textCursor(), direction);
    if (found.isNull()) {
        found = page.find(text, backward ? page.characterCount() - 1 : 0, direction);
    }
    if (!found.isNull()) {
        txtHelp_->setTextCursor(found);
    }
    lblFound_->setText(found.isNull() ? QStringLiteral("Not found.") : QString());
}

void formHelp::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        close();
    } else if (event->matches(QKeySequence::Find)) {
        txtSearch_->setFocus();
        txtSearch_->selectAll();
    } else if (event->key() == Qt::Key_F3 || (enter && txtSearch_->hasFocus())) {
        Find(event->modifiers().testFlag(Qt::ShiftModifier));
    } else if (event->key() == Qt::Key_Left && event->modifiers() == Qt::AltModifier) {
        txtHelp_->backward();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace brindle
