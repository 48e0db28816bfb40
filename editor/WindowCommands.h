// The menus, the tool bar and the keys of a window.
#pragma once

class EditorWindow;
class Habits;

void AddCommands(EditorWindow& window, Habits& habits);
