#pragma once

#include "settings/about_text.h"

#include <QDialog>

namespace brindle {

/// The About box. Its button or any key closes it.
class formAbout : public QDialog {
    Q_OBJECT
  public:
    formAbout(const AboutText& text, QWidget* owner);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace brindle
