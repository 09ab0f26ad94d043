// The commands of a script that ask for something. Each prints one object.
#pragma once

#include <QJsonValue>
#include <QMessageBox>

#include "arguments.h"
#include "commands.h"

namespace zerbal::drive {

/// Title, text, icon and buttons of a message box; null when `box` is null.
QJsonValue BoxValue(const QMessageBox* box);

void GetCommand(const Arguments& arguments, Context& context);
void WindowsCommand(const Arguments& arguments, Context& context);
void ViewCommand(const Arguments& arguments, Context& context);
void ProjectCommand(const Arguments& arguments, Context& context);
void OpsCommand(const Arguments& arguments, Context& context);
void DrawsCommand(const Arguments& arguments, Context& context);
void ColoursCommand(const Arguments& arguments, Context& context);
void FontsCommand(const Arguments& arguments, Context& context);
void RegionsCommand(const Arguments& arguments, Context& context);
void ServicesCommand(const Arguments& arguments, Context& context);
void SelectionCommand(const Arguments& arguments, Context& context);
void IniCommand(const Arguments& arguments, Context& context);
void FileCommand(const Arguments& arguments, Context& context);
void ShotCommand(const Arguments& arguments, Context& context);

}  // namespace zerbal::drive
