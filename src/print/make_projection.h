// The projections that a map for print can have.
#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "map/viewport.h"
#include "print/projection.h"

namespace zerbal::print {

enum class ProjectionKind { kPlateCarree, kMercator, kRobinson, kLambert, kOrthographic };

/// The names on the command line, in the order of ProjectionKind.
inline constexpr std::string_view kProjectionNames[] = {"plate-carree", "mercator", "robinson", "lambert",
                                                        "orthographic"};

/// Shows what the viewport was asked for, or the whole world. Throws base::UsageError when the projection
/// cannot show it. The viewport must outlive the projection.
std::unique_ptr<Projection> MakeProjection(ProjectionKind kind, const map::Viewport& viewport,
                                           bool wholeWorld);

/// Whether the projection shows the globe with an outline of its own.
bool HasOutline(ProjectionKind kind);

}  // namespace zerbal::print
