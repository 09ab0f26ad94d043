// What a script's user does.
#pragma once

#include "arguments.h"
#include "commands.h"

namespace zerbal::drive {

void MenuCommand(const Arguments& arguments, Stage& stage);
void ClickCommand(const Arguments& arguments, Stage& stage);
void RightClickCommand(const Arguments& arguments, Stage& stage);
void TextCommand(const Arguments& arguments, Stage& stage);
void KeysCommand(const Arguments& arguments, Stage& stage);
void PasteCommand(const Arguments& arguments, Stage& stage);
void ChooseCommand(const Arguments& arguments, Stage& stage);
void PickCommand(const Arguments& arguments, Stage& stage);
void ScrollCommand(const Arguments& arguments, Stage& stage);
void HoverCommand(const Arguments& arguments, Stage& stage);
void MapSizeCommand(const Arguments& arguments, Stage& stage);
void PressCommand(const Arguments& arguments, Stage& stage);
void MoveCommand(const Arguments& arguments, Stage& stage);
void ReleaseCommand(const Arguments& arguments, Stage& stage);
void StateCommand(const Arguments& arguments, Stage& stage);
void PlaceCommand(const Arguments& arguments, Stage& stage);
void CloseCommand(const Arguments& arguments, Stage& stage);

}  // namespace zerbal::drive
