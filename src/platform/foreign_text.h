#pragma once

#include <QAction>
#include <QLabel>
#include <QString>
#include <QWidget>

#include <string>

/// Texts that come from files, paths and the settings, handed to Qt so that it shows them as they stand. Qt
/// guesses whether some of the texts it is given are markup, and markup may name files that it then opens.
namespace brindle {

/// A text of the core as Qt holds it. Bytes that are no UTF-8, as a path may have, are shown as U+FFFD.
inline QString ShownText(const std::string& text) {
    return QString::fromStdString(text);
}

/// `text` for a tool tip. What Qt would take for markup becomes markup of ours that says the same.
inline QString ToolTipText(const QString& text) {
    return Qt::mightBeRichText(text)
               ? QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(text.toHtmlEscaped())
               : text;
}

/// Gives a control `text` as tool tip. Those who cannot see it hear the text itself, not our markup.
inline void SetForeignToolTip(QWidget& control, const QString& text) {
    control.setToolTip(ToolTipText(text));
    control.setAccessibleDescription(text);
}

/// Gives a menu item a caption in which "&" stands before the access key. Control characters become blanks: a
/// tab would begin a shortcut.
inline void SetForeignCaption(QAction& item, const std::string& caption) {
    QString text = ShownText(caption);
    for (QChar& character : text) {
        character = character < QLatin1Char(' ') ? QLatin1Char(' ') : character;
    }
    item.setToolTip(QString());
    item.setText(text);
    item.setToolTip(ToolTipText(item.toolTip())); // Qt makes one of the caption
}

/// `text` for the caption of a button or a label with an access key, in which it shall have none.
inline QString WithoutAccessKeys(const QString& text) {
    return QString(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

/// Gives a window its title.
inline void SetForeignTitle(QWidget& window, const QString& title) {
    // Qt would take it for the place of its own mark of unsaved changes.
    window.setWindowTitle(QString(title).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

/// Gives a label its text, which is at no moment taken for markup.
inline void SetForeignText(QLabel& label, const QString& text) {
    label.setTextFormat(Qt::PlainText);
    label.setText(text);
}

} // namespace brindle
