// Steps of a drawing that fail without ending it.
#pragma once

#include <exception>
#include <string>

#include "map/draw_map.h"

namespace zerbal::map {

/// Runs one step of the drawing. An error, such as a database that has disappeared, ends the step. What the
/// step has drawn stays, and the next one is drawn.
template <typename Step>
void Contained(const MapScene& scene, const char* name, const Step& step) {
  try {
    step();
  } catch (const std::exception& error) {
    if (scene.logError != nullptr)
      scene.logError(std::string(name) + ": " + error.what());
  }
}

}  // namespace zerbal::map
