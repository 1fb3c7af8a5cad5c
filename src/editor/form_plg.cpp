#include "editor/form_plg.h"

#include "editor/identity_label_widget.h"
#include "editor/menu_tree.h"
#include "editor/status_line_widget.h"
#include "editor/strip_label_widget.h"
#include "editor/unit_diagram_widget.h"
#include "platform/foreign_text.h"
#include "platform/path_qt.h"
#include "settings/placed_form_widget.h"
#include "settings/screen_scale.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

namespace brindle {

namespace {

constexpr QSize FirstSize(1120, 740); // pixels, where no placement is stored and the screen has room
constexpr QSize LeastSize(800, 600);

QLabel* NewLabel(const char* name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

/// Whatever is proposed: a source that hears "move" may delete the file that was opened.
void AcceptCopy(QDropEvent& event) {
    if (event.possibleActions().testFlag(Qt::CopyAction)) {
        event.setDropAction(Qt::CopyAction);
        event.accept();
    } else {
        event.ignore();
    }
}

} // namespace

formPLG::formPLG(Editor& editor) : editor_(editor), choosers_(this, EventsOfChoosers()) {
    setObjectName(QStringLiteral("formPLG"));
    setAcceptDrops(true);
    FitToScreen(); // first, so that every control is made with the scaled font
    BuildMenus();
    ConnectMenus();

    auto* central = new QWidget(this);
    central->setObjectName(QStringLiteral("picBackground"));
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(10, 8, 10, 2);
    column->setSpacing(8);
    header_ = BuildHeader(central);
    column->addWidget(header_);
    lblSelectedInput_ = NewLabel("lblSelectedInput", central);
    QFont bold = font();
    bold.setBold(true);
    lblSelectedInput_->setFont(bold);
    lblSelectedInput_->setFrameStyle(QFrame::StyledPanel);
    lblSelectedInput_->setMargin(3);
    column->addWidget(lblSelectedInput_);
    // The window is as large as the diagram needs; only a screen that is too small for that makes it scroll.
    auto* view = new QScrollArea(central);
    view->setObjectName(QStringLiteral("picDiagramView"));
    view->setFrameShape(QFrame::NoFrame);
    view->setFocusPolicy(Qt::NoFocus);
    view->setWidgetResizable(true);
    diagram_ = new UnitDiagramWidget(view, EventsOfDiagram());
    view->setWidget(diagram_);
    view->viewport()->setAutoFillBackground(false);
    column->addWidget(view, 1);
    lblStatus_ = new StatusLineWidget(central);
    column->addWidget(lblStatus_);
    setCentralWidget(central);
    editor_.AttachWindow(WindowForEditor());
}

void formPLG::FitToScreen() {
    const int screenHeight = PixelsToTwips(QApplication::primaryScreen()->size().height());
    const double factor = ScreenScaleFactor(screenHeight);
    ScaledControl form;
    form.Kind = ScaledControlKind::Texted;
    form.FontSize = font().pointSizeF();
    form.Width = PixelsToTwips(FirstSize.width());
    form.Height = PixelsToTwips(FirstSize.height());
    form = Scaled(form, factor);
    QFont scaledFont = font();
    scaledFont.setPointSizeF(form.FontSize);
    setFont(scaledFont);
    leastSize_ = LeastSize * factor;
    setMinimumSize(leastSize_);
    usualSize_ = {TwipsToPixels(static_cast<int>(form.Width)), TwipsToPixels(static_cast<int>(form.Height))};
    resize(usualSize_.boundedTo(QApplication::primaryScreen()->availableSize()));
}

void formPLG::GrowToContents() {
    const QMargins margins = centralWidget()->layout()->contentsMargins();
    const int width = diagram_->minimumSizeHint().width() + margins.left() + margins.right();
    setMinimumSize(std::max(leastSize_.width(), std::min(width, screen()->availableSize().width())),
                   leastSize_.height());
}

QWidget* formPLG::BuildHeader(QWidget* parent) {
    auto* header = new QWidget(parent);
    header->setObjectName(QStringLiteral("picHeader"));
    lblGroup_ = NewLabel("lblGroup", header);
    lblTimerLatchUnit_ = NewLabel("lblTimerLatchUnit", header);

    // Made before the buttons, so that the Tab key reaches them in this order.
    QHBoxLayout* groups = BuildGroupStrip(header);
    QHBoxLayout* units = BuildUnitStrip(header);

    auto* save = new QPushButton(QStringLiteral("Save"), header);
    save->setObjectName(QStringLiteral("cmdbtnSave"));
    save->setToolTip(QStringLiteral("Saves File. Does not Prompt about Over Write!!"));
    save->setAutoDefault(false);
    connect(save, &QPushButton::clicked, this, [this] { editor_.mnuFileSave_Click(); });
    auto* constants = new QPushButton(QStringLiteral("Make ENUM"), header);
    constants->setObjectName(QStringLiteral("Command1"));
    constants->setToolTip(
        QStringLiteral("Writes the signal constants into the file Const.tmp of the current folder"));
    constants->setAutoDefault(false);
    connect(constants, &QPushButton::clicked, this, [this] { editor_.Command1_Click(); });

    auto* grid = new QGridLayout(header);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(6);
    grid->setHorizontalSpacing(8);
    grid->addWidget(lblGroup_, 0, 0);
    grid->addLayout(groups, 0, 1);
    grid->addWidget(save, 0, 3);
    grid->addWidget(lblTimerLatchUnit_, 1, 0);
    grid->addLayout(units, 1, 1);
    grid->addWidget(constants, 1, 3);
    lblIdentity_ = new IdentityLabelWidget(header);
    grid->addWidget(lblIdentity_, 0, 2, 2, 1);
    grid->setColumnStretch(2, 1);
    // The strips stay where they are when the caption changes from "Timer:" to "Latch Reset:".
    grid->setColumnMinimumWidth(0, fontMetrics().horizontalAdvance(QStringLiteral("Latch Reset:")) + 4);
    return header;
}

QHBoxLayout* formPLG::BuildGroupStrip(QWidget* parent) {
    auto* strip = new QHBoxLayout;
    strip->setSpacing(4);
    for (int group = 1; group <= MaxGroups; ++group) {
        auto* label = new StripLabelWidget(QString::fromStdString(ElementName("lblGroupNumber", group)),
                                           QString::number(group), parent);
        label->setAccessibleName(QStringLiteral("Group %1").arg(group));
        connect(label, &QAbstractButton::clicked, this, [this, group] { editor_.mnuGroup_Click(group); });
        lblGroupNumber_.at(static_cast<std::size_t>(group - 1)) = label;
        strip->addWidget(label);
    }
    strip->addStretch(1);
    return strip;
}

QHBoxLayout* formPLG::BuildUnitStrip(QWidget* parent) {
    constexpr int gapBeforeLatch = 14;
    auto* strip = new QHBoxLayout;
    strip->setSpacing(4);
    for (const UnitInfo& unit : UnitTable) {
        if (unit.Kind == UnitKind::LatchReset) {
            strip->addSpacing(gapBeforeLatch);
        }
        const QString tag = QString::fromLatin1(unit.Tag.data(), static_cast<qsizetype>(unit.Tag.size()));
        auto* label =
            new StripLabelWidget(QString::fromStdString(ElementName("lblUnit", unit.Number)), tag, parent);
        label->setAccessibleName(QStringLiteral("Unit %1").arg(tag));
        connect(label, &QAbstractButton::clicked, this,
                [this, number = unit.Number] { editor_.mnuTimerLatch_Click(number); });
        lblUnit_.at(static_cast<std::size_t>(unit.Number - 1)) = label;
        strip->addWidget(label);
    }
    strip->addStretch(1);
    return strip;
}

DiagramEvents formPLG::EventsOfDiagram() {
    DiagramEvents events;
    events.InputSelected = [this](int input) { editor_.txtPlo_GotFocus(input); };
    events.InputClicked = [this](int input) { editor_.txtPlo_Click(input); };
    events.InputFlipped = [this](int input) { editor_.txtPlo_DblClick(input); };
    events.SetResetClicked = [this] { editor_.pctSetReset_Click(); };
    events.OutputClicked = [this](int output, bool ticked) { editor_.cbxOutputMap_Click(output, ticked); };
    const auto keyPress = [this](char32_t character) { return editor_.txtTimer_KeyPress(character); };
    events.PickUp = {keyPress, [this](const std::string& text) { return editor_.txtTimerPU_Change(text); },
                     [this] { editor_.txtTimerPU_Load(); }};
    events.DropOut = {keyPress, [this](const std::string& text) { return editor_.txtTimerDO_Change(text); },
                      [] {}};
    return events;
}

ChooserEvents formPLG::EventsOfChoosers() {
    return {[this](int category, int button) { editor_.cmdSelectCategory_Click(category, button); },
            [this](int category) { editor_.UseChooser(category); },
            [this](int category) { editor_.CloseChooser(category); },
            [this] {
                activateWindow();
                diagram_->FocusInput(editor_.Shown().Input);
            }};
}

EditorWindow formPLG::WindowForEditor() {
    EditorWindow window;
    window.ShowHourglass = [](bool busy) {
        if (busy) {
            QApplication::setOverrideCursor(Qt::WaitCursor);
        } else {
            QApplication::restoreOverrideCursor();
        }
    };
    window.ShowTitle = [this] { SetForeignTitle(*this, ShownText(editor_.Title())); };
    window.ShowIdentity = [this] { ShowIdentity(); };
    window.ShowStatus = [this] { ShowStatus(); };
    window.ChooseVdr810Options = [this](Vdr810Options& options) { return ChooseVdr810Options(options); };
    window.ShowRecentFiles = [this] { ShowRecentFiles(); };
    window.ShowCategories = [this] { ShowCategories(); };
    window.ShowOutputMap = [this] {
        diagram_->ShowOutputMap(editor_.OutputMap());
        GrowToContents();
    };
    window.ShowUnit = [this](UnitRedraw redraw) { ShowUnit(redraw); };
    window.ShowChooser = [this](int category) { choosers_.Show(category); };
    window.HideChooser = [this](int category) { choosers_.Hide(category); };
    window.MoveChooserHome = [this](int category) { choosers_.MoveHome(category); };
    window.RaiseChooser = [this](int category) { choosers_.Raise(category); };
    window.ShowOpenChoosers = [this] { CheckOpenChoosers(); };
    window.FocusInput = [this](int input) {
        activateWindow();
        diagram_->FocusInput(input);
    };
    window.Placement = PlacedFormOf(*this, true, [this] { restoredState_ = Qt::WindowMaximized; });
    window.Unload = [this] { close(); };
    return window;
}

void formPLG::ShowIdentity() {
    QString text = ShownText(editor_.Identity());
    lblIdentity_->ShowText(text.replace(QLatin1String("\r\n"), QLatin1String("\n")));
}

void formPLG::ShowStatus() {
    QStringList notices;
    for (const std::string& notice : editor_.StatusNotices()) {
        notices << ShownText(notice);
    }
    lblStatus_->ShowNotices(notices);
}

void formPLG::ShowUnit(UnitRedraw redraw) {
    const UnitView view = editor_.View();
    lblGroup_->setText(QString::fromStdString(view.GroupCaption));
    lblTimerLatchUnit_->setText(QString::fromStdString(view.UnitCaption));
    lblSelectedInput_->setText(QString::fromStdString(view.SelectedInputCaption));
    for (int group = 1; group <= MaxGroups; ++group) {
        const StripLabelView& label = view.Groups.at(static_cast<std::size_t>(group - 1));
        lblGroupNumber_.at(static_cast<std::size_t>(group - 1))->ShowView(label);
        QAction* item = Action(QString::fromStdString(ElementName("mnuGroup", group)));
        item->setChecked(label.Checked);
        item->setVisible(label.Visible);
    }
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        const StripLabelView& label = view.Units.at(static_cast<std::size_t>(unit - 1));
        lblUnit_.at(static_cast<std::size_t>(unit - 1))->ShowView(label);
        QAction* item = Action(QString::fromStdString(ElementName("mnuTimerLatch", unit)));
        item->setChecked(label.Checked);
        item->setVisible(label.Visible);
    }
    const QWidget* focused = focusWidget();
    diagram_->ShowUnit(view, redraw);
    // The keyboard stays where the user has it, but never in a control that is now hidden; and from input to
    // input it goes along with the selection.
    if (focused != nullptr && diagram_->isAncestorOf(focused)) {
        const bool inInput = focused->objectName().startsWith(QLatin1String("txtPlo("));
        if (!focused->isVisibleTo(this) || (inInput && redraw == UnitRedraw::Selected)) {
            diagram_->FocusInput(editor_.Shown().Input);
        }
    }
}

void formPLG::LoadAndShow() {
    editor_.Form_Load();
    loaded_ = true;
    diagram_->FocusInput(editor_.Shown().Input);
    setWindowState(restoredState_);
    show();
    auto* everySecond = new QTimer(this);
    everySecond->setObjectName(QStringLiteral("tmrRecovery"));
    connect(everySecond, &QTimer::timeout, this, [this] { editor_.KeepRecoveryCopy(); });
    everySecond->start(std::chrono::seconds(1));
}

bool formPLG::event(QEvent* event) {
    const bool handled = QMainWindow::event(event);
    if (event->type() == QEvent::WindowActivate && loaded_) {
        editor_.Form_Activate();
    }
    return handled;
}

void formPLG::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> files = event->mimeData()->urls();
    const bool waiting = QApplication::activeModalWidget() != nullptr; // a command has a question open
    if (files.size() == 1 && files.front().isLocalFile() && !waiting) {
        AcceptCopy(*event);
    }
}

void formPLG::dragMoveEvent(QDragMoveEvent* event) {
    AcceptCopy(*event);
}

void formPLG::dropEvent(QDropEvent* event) {
    const std::string path = PathFromUrl(event->mimeData()->urls().front());
    AcceptCopy(*event);
    // Later, so that the program that the file was dragged from need not wait for the answer to a question.
    QTimer::singleShot(0, this, [this, path] {
        if (QApplication::activeModalWidget() == nullptr) {
            editor_.OpenPath(path);
        }
    });
}

void formPLG::keyPressEvent(QKeyEvent* event) {
    const CategoryChoosers& choosers = editor_.Choosers();
    if (event->key() == Qt::Key_F6 && choosers.OpenCount() > 0) {
        choosers_.Focus(choosers.FromBackToFront().back());
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

void formPLG::mousePressEvent(QMouseEvent* event) {
    const QWidget* under = childAt(event->position().toPoint());
    const bool background = under == nullptr || under == diagram_ || under == centralWidget() ||
                            under->objectName() == QLatin1String("picHeader");
    if (event->button() == Qt::RightButton && event->modifiers() == Qt::NoModifier && background) {
        mnuLogicCategories_->popup(event->globalPosition().toPoint());
    }
}

void formPLG::closeEvent(QCloseEvent* event) {
    editor_.Form_Unload();
    for (QWidget* other : QApplication::topLevelWidgets()) {
        if (other != this && other->isWindow() && other->isVisible()) {
            other->close();
        }
    }
    if (asksNothing_) {
        editor_.KeepRecoveryCopyAtOnce();
    } else {
        editor_.Form_Terminate();
    }
    event->accept();
    QApplication::quit();
}

} // namespace brindle
