// What a script may ask. Each prints one object.
#pragma once

#include <QJsonValue>
#include <QMessageBox>

#include "arguments.h"
#include "commands.h"

namespace zerbal::drive {

/// Title, text, icon and buttons of a box; null for none.
QJsonValue BoxValue(const QMessageBox* box);

void GetCommand(const Arguments& arguments, Stage& stage);
void WindowsCommand(const Arguments& arguments, Stage& stage);
void ViewCommand(const Arguments& arguments, Stage& stage);
void ProjectCommand(const Arguments& arguments, Stage& stage);
void OpsCommand(const Arguments& arguments, Stage& stage);
void DrawsCommand(const Arguments& arguments, Stage& stage);
void ColoursCommand(const Arguments& arguments, Stage& stage);
void FontsCommand(const Arguments& arguments, Stage& stage);
void RegionsCommand(const Arguments& arguments, Stage& stage);
void ServicesCommand(const Arguments& arguments, Stage& stage);
void SelectionCommand(const Arguments& arguments, Stage& stage);
void IniCommand(const Arguments& arguments, Stage& stage);
void FileCommand(const Arguments& arguments, Stage& stage);
void ShotCommand(const Arguments& arguments, Stage& stage);

}  // namespace zerbal::drive
