#include "settings/form_about.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <string>

namespace brindle {
namespace {

/// The About box of version 2.30, revision 12, shown.
class AboutWindow : public testing::Test {
  protected:
    AboutWindow() : Form(BuildAboutText(2, 30, 12, "6.4.2"), nullptr) {
        Form.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Form));
    }

    std::string TextOf(const char* name) {
        const auto* label = Form.findChild<QLabel*>(QString::fromLatin1(name));
        return label == nullptr ? "(no such label)" : label->text().toStdString();
    }

    formAbout Form;
};

TEST_F(AboutWindow, SaysWhatTheProgramIs) {
    EXPECT_EQ("Brindle - VDR812 Programmable Logic Designer", TextOf("lblProduct"));
    EXPECT_EQ("Version 2.30.0012", TextOf("lblVersion"));
    EXPECT_EQ("For use with 32 bit versions of Windows.", TextOf("lblSystems"));
    EXPECT_NE(std::string::npos, TextOf("lblLibraries").find("Qt 6.4.2"));
}

TEST_F(AboutWindow, ItsButtonClosesIt) {
    Form.findChild<QPushButton*>(QStringLiteral("cmdClose"))->click();
    EXPECT_FALSE(Form.isVisible());
}

TEST_F(AboutWindow, AnyKeyClosesIt) {
    for (const Qt::Key key :
         {Qt::Key_A, Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape, Qt::Key_F1, Qt::Key_Down}) {
        Form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Form));
        QTest::keyClick(Form.focusWidget(), key);
        EXPECT_FALSE(Form.isVisible()) << key;
    }
}

TEST_F(AboutWindow, AKeyThatOnlyModifiesOthersDoesNot) {
    QTest::keyClick(Form.focusWidget(), Qt::Key_Shift);
    EXPECT_TRUE(Form.isVisible());
}

TEST_F(AboutWindow, AllItsLinesAreWhole) {
    for (const QLabel* label : Form.findChildren<QLabel*>()) {
        const int needed = label->heightForWidth(label->width());
        EXPECT_GE(label->height(), needed) << label->objectName().toStdString();
        EXPECT_GE(label->width(), label->minimumSizeHint().width()) << label->objectName().toStdString();
    }
}

} // namespace
} // namespace brindle
