#include "editor/save_prompt.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(SavePrompt, EachCommandAsksInItsOwnWords) {
    const std::string start =
        "Changes to the programmable logic have not been saved.  Do you want to save the "
        "programmable logic to a file before ";
    EXPECT_EQ(SavePrompt(DiscardingCommand::Exit).Text, start + "exiting?");
    EXPECT_EQ(SavePrompt(DiscardingCommand::WindowEnd).Text, start + "exiting?");
    EXPECT_EQ(SavePrompt(DiscardingCommand::New).Text, start + "continuing?");
    EXPECT_EQ(SavePrompt(DiscardingCommand::Open).Text, start + "you load a new file?");
}

TEST(SavePrompt, OnlyTheEndedWindowCannotBeKept) {
    EXPECT_EQ(SavePrompt(DiscardingCommand::Exit).Buttons, MessageButtons::YesNoCancel);
    EXPECT_EQ(SavePrompt(DiscardingCommand::New).Buttons, MessageButtons::YesNoCancel);
    EXPECT_EQ(SavePrompt(DiscardingCommand::Open).Buttons, MessageButtons::YesNoCancel);
    EXPECT_EQ(SavePrompt(DiscardingCommand::WindowEnd).Buttons, MessageButtons::YesNo);
}

TEST(SavePrompt, HasNoIconAndTheProgramsName) {
    for (const auto command : {DiscardingCommand::Exit, DiscardingCommand::WindowEnd, DiscardingCommand::New,
                               DiscardingCommand::Open}) {
        EXPECT_EQ(SavePrompt(command).Icon, MessageIcon::None);
        EXPECT_EQ(SavePrompt(command).Title, "Brindle");
    }
}

} // namespace
} // namespace brindle
