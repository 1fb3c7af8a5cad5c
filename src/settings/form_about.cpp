#include "settings/form_about.h"

#include "platform/foreign_text.h"

#include <QFont>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace brindle {

namespace {

constexpr int TextWidth = 560; // pixels; a licence takes a line

QLabel* NewLine(const char* name, const std::string& text, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    SetForeignText(*label, ShownText(text));
    label->setWordWrap(true);
    return label;
}

QLabel* NewHeading(const char* name, const std::string& text, QWidget* parent) {
    QLabel* label = NewLine(name, text, parent);
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.2);
    label->setFont(font);
    return label;
}

std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : "\n") + line;
    }
    return text;
}

/// A key that only changes what another does.
bool IsModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_AltGr ||
           key == Qt::Key_Meta || key == Qt::Key_CapsLock || key == Qt::Key_NumLock;
}

} // namespace

formAbout::formAbout(const AboutText& text, QWidget* owner) : QDialog(owner) {
    setObjectName(QStringLiteral("formAbout"));
    setWindowTitle(QStringLiteral("About Brindle"));
    setModal(true);
    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->setSpacing(8);
    QLabel* product = NewHeading("lblProduct", text.Product, this);
    product->setMinimumWidth(TextWidth);
    column->addWidget(product);
    column->addWidget(NewLine("lblVersion", text.Version, this));
    column->addWidget(NewLine("lblSystems", text.Systems, this));
    column->addWidget(NewLine("lblPublisher", text.Publisher, this));
    auto* rule = new QFrame(this);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    column->addWidget(rule);
    column->addWidget(
        NewLine("lblLibrariesCaption", "Made with these libraries, under their licenses:", this));
    column->addWidget(NewLine("lblLibraries", Lines(text.Libraries), this));

    auto* close = new QPushButton(QStringLiteral("Close"), this);
    close->setObjectName(QStringLiteral("cmdClose"));
    close->setDefault(true);
    close->installEventFilter(this); // the button would take arrows and Tab for moving the keyboard
    connect(close, &QPushButton::clicked, this, [this] { accept(); });
    column->addSpacing(4);
    column->addWidget(close, 0, Qt::AlignRight);
}

bool formAbout::eventFilter(QObject* /*watched*/, QEvent* event) {
    const bool pressed = event->type() == QEvent::KeyPress;
    if (pressed) {
        keyPressEvent(static_cast<QKeyEvent*>(event));
    }
    return pressed;
}

void formAbout::keyPressEvent(QKeyEvent* event) {
    if (IsModifier(event->key())) {
        QDialog::keyPressEvent(event);
    } else {
        accept();
    }
}

} // namespace brindle
