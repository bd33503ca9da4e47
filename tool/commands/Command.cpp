#include "tool/commands/Command.h"

#include <algorithm>
#include <string_view>

namespace vexpa_tool {

namespace {

// Registrations run before main, in no order, so the list is made by the first.
std::vector<Command>& Registered() {
    static std::vector<Command> commands;
    return commands;
}

std::vector<HelpTopic>& RegisteredTopics() {
    static std::vector<HelpTopic> topics;
    return topics;
}

}  // namespace

CommandRegistration::CommandRegistration(const Command& command) {
    Registered().push_back(command);
}

std::vector<Command> AllCommands() {
    std::vector<Command> commands = Registered();
    std::sort(commands.begin(), commands.end(), [](const Command& a, const Command& b) {
        return std::string_view(a.name) < std::string_view(b.name);
    });
    return commands;
}

HelpRegistration::HelpRegistration(HelpTopic topic) {
    RegisteredTopics().push_back(topic);
}

std::string HelpOn(const std::string& word, bool asJson) {
    for (const HelpTopic topic : RegisteredTopics()) {
        std::string text = topic(word, asJson);
        if (!text.empty()) return text;
    }
    return {};
}

}  // namespace vexpa_tool
