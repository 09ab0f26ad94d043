// Title, legend, scale bar and north arrow.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "print/furniture_layout.h"
#include "print/legend.h"
#include "print/print_style.h"
#include "print/print_surface.h"
#include "print/projection.h"

namespace zerbal::print {

/// One piece: its size, and how it is drawn into a box of that size.
struct FurnitureItem {
  FurniturePiece piece;
  std::function<void(const TwipBox& box, PrintSurface& surface)> draw;
};

/// Makes the pieces, which refer to it. `surface` measures their texts; `picture` is the whole drawing area.
class FurnitureMaker {
 public:
  FurnitureMaker(const PrintStyle& style, const TwipBox& picture, PrintSurface& surface)
      : style_(style), picture_(picture), surface_(surface) {}

  /// Title of one line, in smaller letters when it is too long, cut when these are still too long.
  FurnitureItem Title(const std::string& title) const;

  FurnitureItem Legend(std::vector<LegendRow> rows, std::optional<Corner> wanted) const;

  /// Nothing when the middle of the picture has no scale.
  std::optional<FurnitureItem> Scale(const Projection& projection, std::optional<Corner> wanted) const;

  /// Shows the direction of north at its place, or in the middle of the picture when its place is beside the
  /// globe. `projection` must outlive the piece.
  FurnitureItem North(const Projection& projection, std::optional<Corner> wanted) const;

 private:
  std::int32_t WidthOf(std::string_view text, const map::TextFont& font) const;
  std::int32_t RowHeight(const map::TextFont& font) const;
  /// A filled box with a frame.
  void DrawBox(const TwipBox& box, PrintSurface& surface) const;

  const PrintStyle& style_;
  TwipBox picture_;
  PrintSurface& surface_;
};

/// The pieces that have found a place.
class Furniture {
 public:
  /// Twips between the pieces and from the picture's edge.
  static constexpr std::int32_t kMargin = 8 * kTwipsPerPixel;

  Furniture(std::vector<FurnitureItem> items, const TwipBox& picture, std::span<const TwipPoint> busy);

  std::vector<TwipBox> Boxes() const;
  void Draw(PrintSurface& surface) const;

 private:
  std::vector<FurnitureItem> items_;
  std::vector<std::optional<TwipBox>> boxes_;  ///< of items_
};

}  // namespace zerbal::print
