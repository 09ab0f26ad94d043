// Compares a picture with the one that is expected.
#pragma once

#include <QImage>
#include <QRect>
#include <string>
#include <vector>

namespace zerbal::test {

struct PictureDifference {
  std::string words;  ///< how many pixels differ, and where; empty when the pictures are equal
  QImage picture;     ///< the differing pixels red on a pale picture
};

/// `letters` are the rectangles that letters can touch. In them a pixel may differ by what another version of
/// the font renderer makes of the same letter; everywhere else the pictures must be equal.
PictureDifference ComparePictures(const QImage& expected, const QImage& drawn,
                                  const std::vector<QRect>& letters);

}  // namespace zerbal::test
