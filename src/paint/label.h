// The letters of a text as one mask.
#pragma once

#include <string_view>
#include <vector>

#include "paint/ink.h"
#include "paint/prepared_pictures.h"

namespace zerbal::paint {

/// Reuses its buffers: use one for many texts.
class Label {
 public:
  /// `text` is UTF-8. Returns false when a letter is not known to the font, or when the mask would be too
  /// large to be worth while.
  bool Compose(GlyphSet& glyphs, std::string_view text);

  /// Of the last text that was composed. The reference pixel is the top left corner of its box.
  const Mask& Shape() const { return shape_; }

 private:
  struct Placed {
    const Mask* mask;
    int left;  ///< of the mask in the label
  };

  bool Place(GlyphSet& glyphs, std::string_view text);

  std::vector<Placed> letters_;
  Mask shape_;
};

}  // namespace zerbal::paint
