#pragma once

#include "editor/editor.h"

#include <QDialog>

class QComboBox;

namespace brindle {

/// The window that clears a whole setting group or copies one onto others.
class formGroupEditingFunctions : public QDialog {
    Q_OBJECT
  public:
    /// `editor` outlives the window.
    formGroupEditingFunctions(Editor& editor, QWidget* owner);

    /// Shows the window where it stood last, with the shown group chosen and the next one as a copy's target.
    void OpenAtPlace();

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    QComboBox* NewGroupBox(const char* name, const QString& accessibleName);
    QWidget* BuildClearFrame();
    QWidget* BuildCopyFrame();
    void OfferGroups(QComboBox& box, int choice);

    Editor& editor_;
    QComboBox* cmbClearGroup_ = nullptr;
    QComboBox* cmbCopyGroupFrom_ = nullptr;
    QComboBox* cmbCopyGroupTo_ = nullptr;
};

} // namespace brindle
