// Drawing pictures and files while memory runs out: an error or a result, and no harm to the next drawing.
#include <QImage>
#include <QPainter>
#include <exception>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "faults/all_layers.h"
#include "faults/failing_allocations.h"
#include "paint/map_file.h"
#include "paint/painter_surface.h"
#include "paint/picture_surface.h"
#include "support/sanitizer.h"
#include "support/small_world.h"
#include "support/temp_folder.h"

#if ZERBAL_ADDRESS_SANITIZER
#include <sanitizer/lsan_interface.h>
#endif

namespace zerbal::test {
namespace {

constexpr int kWidth = 320, kHeight = 200;

/// Constructors of Qt do not free what they have when an allocation fails.
#if ZERBAL_ADDRESS_SANITIZER
using LeaksOfQt = __lsan::ScopedDisabler;
#else
struct LeaksOfQt {
  ~LeaksOfQt() {}
};
#endif

class PaintingWithoutMemory : public testing::Test {
 protected:
  void SetUp() override { SmallWorld().Write(folder.Path()); }

  /// `draw` returns what it drew, which is the same after all failures.
  template <typename Draw>
  void FailEach(const Draw& draw) {
    const auto expected = draw();
    const auto work = [&] {
      const LeaksOfQt ignored;
      try {
        draw();
      } catch (const std::exception&) {
        return;
      }
    };
    const int allocations = FailEachAllocation([] {}, work, [] {});
    EXPECT_GT(allocations, 50);
    EXPECT_TRUE(draw() == expected);
  }

  QImage OnPicture(const std::function<void(QImage&)>& draw) {
    QImage picture(kWidth, kHeight, QImage::Format_RGB32);
    picture.fill(Qt::white);
    draw(picture);
    return picture;
  }

  TempFolder folder;
};

TEST_F(PaintingWithoutMemory, OnAPictureByAPainter) {
  AllLayers layers(folder.Path());
  for (const char* region : {"FOUR", "MED"}) {
    FailEach([&] {
      return OnPicture([&](QImage& picture) {
        QPainter painter(&picture);
        paint::PainterSurface surface(painter, 0.5, picture.rect());
        layers.Draw(region, surface);
      });
    });
  }
}

TEST_F(PaintingWithoutMemory, OnAPicture) {
  AllLayers layers(folder.Path());
  paint::PreparedPictures prepared;
  for (const char* region : {"FOUR", "MED"}) {
    FailEach([&] {
      return OnPicture([&](QImage& picture) {
        paint::PictureSurface surface(picture, 0.5, prepared);
        layers.Draw(region, surface);
      });
    });
  }
}

/// Not SVG and PDF: the devices of Qt for these files do not survive a painter that cannot begin.
TEST_F(PaintingWithoutMemory, InAPngFile) {
  AllLayers layers(folder.Path());
  const paint::DrawMapOn draw = [&](map::Surface& surface) { layers.Draw("FOUR", surface); };
  const auto png = [&] {
    std::string bytes;
    paint::WritePng(
        QSize(kWidth, kHeight), 48, draw, [&](std::string_view part) { bytes += part; }, [](double) {});
    return bytes;
  };
  FailEach(png);
}

}  // namespace
}  // namespace zerbal::test
