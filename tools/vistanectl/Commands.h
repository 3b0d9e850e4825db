#pragma once

class Tool;

// Each of these adds the commands of one group; main() calls them in the order of the help.
void addSettingCommands(Tool& tool);
void addPackCommands(Tool& tool);
void addDeviceCommands(Tool& tool);
void addChannelCommands(Tool& tool);
void addProfileCommands(Tool& tool);
void addMenuCommand(Tool& tool);
void addLintCommand(Tool& tool);
void addOpenCommand(Tool& tool);
void addEventCommands(Tool& tool);
void addServiceCommand(Tool& tool);
void addWatchCommand(Tool& tool);
