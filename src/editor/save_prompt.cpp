#include "editor/save_prompt.h"

namespace brindle {

MessageBox SavePrompt(DiscardingCommand command) {
    const std::string question = "Changes to the programmable logic have not been saved.  "
                                 "Do you want to save the programmable logic to a file before ";
    const MessageButtons buttons =
        command == DiscardingCommand::WindowEnd ? MessageButtons::YesNo : MessageButtons::YesNoCancel;
    switch (command) {
    case DiscardingCommand::New:
        return {question + "continuing?", MessageIcon::None, buttons};
    case DiscardingCommand::Open:
        return {question + "you load a new file?", MessageIcon::None, buttons};
    case DiscardingCommand::Exit:
    case DiscardingCommand::WindowEnd:
        break;
    }
    return {question + "exiting?", MessageIcon::None, buttons};
}

} // namespace brindle
