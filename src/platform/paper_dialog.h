#pragma once

#include <QLocale>
#include <QPageLayout>

class QWidget;

namespace brindle {

/// Lets the user choose paper and margins of `layout`; its orientation stays. For pages that no printer's
/// driver sets up. Margins are told in the locale's unit. True when he did.
bool ShowPaperDialog(QWidget* owner, QPageLayout& layout, const QLocale& locale = QLocale::system());

} // namespace brindle
