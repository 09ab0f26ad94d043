// The commands of a script that act as the user does.
#pragma once

#include "arguments.h"
#include "commands.h"

namespace zerbal::drive {

void MenuCommand(const Arguments& arguments, Context& context);
void ClickCommand(const Arguments& arguments, Context& context);
void RightClickCommand(const Arguments& arguments, Context& context);
void TextCommand(const Arguments& arguments, Context& context);
void KeysCommand(const Arguments& arguments, Context& context);
void PasteCommand(const Arguments& arguments, Context& context);
void ChooseCommand(const Arguments& arguments, Context& context);
void PickCommand(const Arguments& arguments, Context& context);
void ScrollCommand(const Arguments& arguments, Context& context);
void HoverCommand(const Arguments& arguments, Context& context);
void MapSizeCommand(const Arguments& arguments, Context& context);
void PressCommand(const Arguments& arguments, Context& context);
void MoveCommand(const Arguments& arguments, Context& context);
void ReleaseCommand(const Arguments& arguments, Context& context);
void WheelCommand(const Arguments& arguments, Context& context);
void KeyCommand(const Arguments& arguments, Context& context);
void RestCommand(const Arguments& arguments, Context& context);
void StateCommand(const Arguments& arguments, Context& context);
void PlaceCommand(const Arguments& arguments, Context& context);
void CloseCommand(const Arguments& arguments, Context& context);

}  // namespace zerbal::drive
