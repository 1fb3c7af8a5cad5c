#pragma once

#include "model/logic_config.h"
#include "platform/message_box.h"

#include <string>
#include <vector>

/// Clearing and copying whole setting groups: the choices, the questions and what is done.
///
/// A choice is 1 to 8 for a group, `AllGroups`, or 0 where nothing is chosen.
namespace brindle {

inline constexpr int AllGroups = MaxGroups + 1;

/// What the boxes of the group editing window offer, choice 1 first: "Group 1" to "Group 8", "All Groups".
std::vector<std::string> GroupEntries();

/// Whether `choice` stands for groups that the logic has.
bool ChoiceInLogic(const LogicConfig& config, int choice);

/// The choice that a copy of `group` (1 to 8) offers as its target at first: the group after it, the first
/// after the last.
int NextGroup(const LogicConfig& config, int group);

MessageBox ClearGroupQuestion(int choice);
MessageBox CopyGroupQuestion(int from, int to);
MessageBox ClearUnitQuestion();

/// Refuses a copy onto itself, or from all groups.
MessageBox SameGroupNotice();

/// Whether a copy from one choice to another is one of a group onto others; no choice counts as group 1.
bool CanCopy(int from, int to);

/// Clears the chosen groups that the logic has and returns them; marks the logic modified when there are any.
/// No choice counts as group 1.
std::vector<int> ClearGroups(LogicConfig& config, int choice);

/// Copies a group onto the chosen others that the logic has and returns those. Marks the logic modified when
/// it has any of the chosen, the only one among "All Groups" too. Nothing where CanCopy is false or the logic
/// has no such source.
std::vector<int> CopyGroups(LogicConfig& config, int from, int to);

} // namespace brindle
