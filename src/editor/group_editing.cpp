#include "editor/group_editing.h"

namespace brindle {

namespace {

constexpr const char* ClearTitle = "Confirm Group Clear Selection";
constexpr const char* CopyTitle = "Confirm Group Copy Selection";

std::string EntryOf(int choice) {
    if (choice == AllGroups) {
        return "All Groups";
    }
    return choice == 0 ? std::string() : "Group " + std::to_string(choice);
}

MessageBox Question(const std::string& text, const char* title) {
    return {text, MessageIcon::Exclamation, MessageButtons::OkCancel, title};
}

/// Without a choice, group 1 is meant.
int Chosen(int choice) {
    return choice == 0 ? 1 : choice;
}

std::vector<int> GroupsOfChoice(const LogicConfig& config, int choice) {
    std::vector<int> groups;
    for (int group = 1; group <= config.GroupCount; ++group) {
        if (choice == AllGroups || choice == group) {
            groups.push_back(group);
        }
    }
    return groups;
}

} // namespace

std::vector<std::string> GroupEntries() {
    std::vector<std::string> entries;
    for (int choice = 1; choice <= AllGroups; ++choice) {
        entries.push_back(EntryOf(choice));
    }
    return entries;
}

bool ChoiceInLogic(const LogicConfig& config, int choice) {
    return choice == AllGroups || (choice >= 1 && choice <= config.GroupCount);
}

int NextGroup(const LogicConfig& config, int group) {
    return group < config.GroupCount ? group + 1 : 1;
}

MessageBox ClearGroupQuestion(int choice) {
    return Question(
        "Select OK to clear " + EntryOf(choice) +
            "'s logic settings.  To abort press cancel.\r\nNote: All Timer and Latch Units will be "
            "cleared for the group,not just the one being displayed.",
        ClearTitle);
}

MessageBox CopyGroupQuestion(int from, int to) {
    return Question(
        "Select OK to copy from " + EntryOf(from) + " to " + EntryOf(to) +
            ".  To abort the copy press cancel.\r\nNote: All Timer and Latch Units will be copied for "
            "the group,not just the one being displayed.",
        CopyTitle);
}

MessageBox ClearUnitQuestion() {
    return Question(
        "Select OK to clear all the settings on the currently displayed form.  To abort press cancel.",
        ClearTitle);
}

MessageBox SameGroupNotice() {
    return {"Can not copy to the same group.", MessageIcon::Exclamation, MessageButtons::Ok};
}

bool CanCopy(int from, int to) {
    return Chosen(from) != Chosen(to) && from != AllGroups;
}

std::vector<int> ClearGroups(LogicConfig& config, int choice) {
    std::vector<int> cleared = GroupsOfChoice(config, Chosen(choice));
    for (const int group : cleared) {
        ClearGroup(config.Group(group), UnconnectedCode(config));
        config.Modified = true;
    }
    return cleared;
}

std::vector<int> CopyGroups(LogicConfig& config, int from, int to) {
    const int source = Chosen(from);
    if (!CanCopy(from, to) || source > config.GroupCount) {
        return {};
    }
    std::vector<int> targets = GroupsOfChoice(config, Chosen(to));
    config.Modified = config.Modified || !targets.empty();
    std::erase(targets, source);
    for (const int target : targets) {
        CopyGroup(config, source, target);
    }
    return targets;
}

} // namespace brindle
