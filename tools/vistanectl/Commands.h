#pragma once

#include <string>

class CoreStore;
class Tool;

// Each of these adds the commands of one group; main() calls them in the order of the help.
void addSettingCommands(Tool& tool);
void addPackCommands(Tool& tool);
void addDeviceCommands(Tool& tool);
void addChannelCommands(Tool& tool);
void addProfileCommands(Tool& tool);
void addMenuCommand(Tool& tool);
void addLintCommand(Tool& tool);
void addGuideCommand(Tool& tool);
void addOpenCommand(Tool& tool);
void addEventCommands(Tool& tool);
void addServiceCommand(Tool& tool);
void addWatchCommand(Tool& tool);

// Tool::finish() after a change of the profiles; warns when the one in force can't be chosen, for then the menu
// shows another as chosen.
int finishProfiles(const Tool& tool, CoreStore& store, int storeStatus, const std::string& about);
