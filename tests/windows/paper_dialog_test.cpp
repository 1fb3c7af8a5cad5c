#include "platform/paper_dialog.h"
#include "platform/printer_dialogs.h"
#include "support/dialog_driver_window.h"

#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLocale>
#include <QTest>
#include <gtest/gtest.h>

namespace brindle {
namespace {

class PaperDialogTest : public testing::Test {
  protected:
    bool Show() { return ShowPaperDialog(nullptr, Layout, Locale); }

    static QDoubleSpinBox* Margin(const QDialog& dialog, const char* name) {
        return dialog.findChild<QDoubleSpinBox*>(QString::fromLatin1(name));
    }

    static QComboBox* Paper(const QDialog& dialog) {
        return dialog.findChild<QComboBox*>(QStringLiteral("cmbPaper"));
    }

    QLocale Locale{QLocale::German, QLocale::Germany}; ///< which measures in millimetres
    DialogDriver Dialogs;
    QPageLayout Layout{QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(15, 16, 17, 18),
                       QPageLayout::Millimeter};
};

TEST_F(PaperDialogTest, BeginsWithWhatIsChosenAndKeepsItAll) {
    const QPageLayout before = Layout;
    Dialogs.Drive([](QDialog& dialog) {
        EXPECT_EQ(QStringLiteral("A4"), Paper(dialog)->currentText());
        EXPECT_DOUBLE_EQ(15, Margin(dialog, "spnLeft")->value());
        EXPECT_DOUBLE_EQ(16, Margin(dialog, "spnTop")->value());
        EXPECT_DOUBLE_EQ(17, Margin(dialog, "spnRight")->value());
        EXPECT_DOUBLE_EQ(18, Margin(dialog, "spnBottom")->value());
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_TRUE(Show());
    EXPECT_EQ(before, Layout);
}

TEST_F(PaperDialogTest, TakesPaperAndMarginsAndKeepsTheOrientation) {
    Dialogs.Drive([](QDialog& dialog) {
        Paper(dialog)->setCurrentIndex(Paper(dialog)->findData(QPageSize::A5));
        Margin(dialog, "spnLeft")->setValue(50);
        Margin(dialog, "spnBottom")->setValue(0);
        dialog.accept();
    });
    EXPECT_TRUE(Show());
    EXPECT_EQ(QPageSize::A5, Layout.pageSize().id());
    EXPECT_EQ(QPageLayout::Landscape, Layout.orientation());
    EXPECT_EQ(QMarginsF(50, 16, 17, 0), Layout.margins(QPageLayout::Millimeter));
}

TEST_F(PaperDialogTest, EveryPaperHasRoomForTheWidestMargins) {
    Dialogs.Drive([](QDialog& dialog) {
        ASSERT_LT(4, Paper(dialog)->count());
        for (int index = 0; index < Paper(dialog)->count(); ++index) {
            const auto id = static_cast<QPageSize::PageSizeId>(Paper(dialog)->itemData(index).toInt());
            const QSizeF size = QPageSize(id).size(QPageSize::Millimeter);
            EXPECT_GT(size.width(), 2 * Margin(dialog, "spnLeft")->maximum()) << id;
            EXPECT_GT(size.height(), 2 * Margin(dialog, "spnTop")->maximum()) << id;
        }
        dialog.reject();
    });
    EXPECT_FALSE(Show());
}

TEST_F(PaperDialogTest, ACancelChangesNothing) {
    const QPageLayout before = Layout;
    Dialogs.Drive([](QDialog& dialog) {
        Margin(dialog, "spnTop")->setValue(40);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(Show());
    EXPECT_EQ(before, Layout);
}

TEST_F(PaperDialogTest, APaperThatIsNotListedIsAddedAndKept) {
    Layout.setPageSize(QPageSize(QPageSize::Folio));
    Dialogs.Drive([](QDialog& dialog) {
        EXPECT_EQ(QPageSize::name(QPageSize::Folio), Paper(dialog)->currentText());
        dialog.accept();
    });
    EXPECT_TRUE(Show());
    EXPECT_EQ(QPageSize::Folio, Layout.pageSize().id());
}

TEST_F(PaperDialogTest, MeasuresInInchesWhereTheUserDoes) {
    Locale = QLocale(QLocale::English, QLocale::UnitedStates);
    Layout.setUnits(QPageLayout::Inch);
    Layout.setMargins(QMarginsF(0.5, 0.75, 0.5, 0.75));
    Dialogs.Drive([](QDialog& dialog) {
        EXPECT_DOUBLE_EQ(0.5, Margin(dialog, "spnLeft")->value());
        EXPECT_TRUE(Margin(dialog, "spnLeft")->text().endsWith(QLatin1String(" in")));
        Margin(dialog, "spnLeft")->setValue(1);
        dialog.accept();
    });
    EXPECT_TRUE(Show());
    EXPECT_NEAR(25.4, Layout.margins(QPageLayout::Millimeter).left(), 0.05);
    EXPECT_NEAR(0.75, Layout.margins(QPageLayout::Inch).top(), 0.001);
}

TEST_F(PaperDialogTest, SetsUpThePagesOfThePdfFile) {
    const PrinterFunctions printers = SystemPrinters();
    printers.Choose(QString());
    Dialogs.Drive([](QDialog& dialog) {
        Paper(dialog)->setCurrentIndex(Paper(dialog)->findData(QPageSize::Legal));
        dialog.accept();
    });
    EXPECT_TRUE(printers.Setup(nullptr, Layout));
    EXPECT_EQ(QPageSize::Legal, Layout.pageSize().id());
}

} // namespace
} // namespace brindle
