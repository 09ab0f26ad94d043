#include "driven_program.h"

#include <QApplication>
#include <deque>
#include <filesystem>
#include <optional>

#include "app/clock.h"
#include "app/random_generator.h"
#include "app/running_program.h"
#include "dialogs/qt_message_boxes.h"
#include "map/tee_surface.h"

namespace zerbal::drive {
namespace {

/// The program's generator with values and a seed that a script may set.
class ScriptedRandom final : public app::RandomGenerator {
 public:
  void Queue(const std::vector<float>& values) { queue_.insert(queue_.end(), values.begin(), values.end()); }
  void SetSeed(std::uint32_t seed) { seed_ = seed; }

  void Seed(std::uint32_t seed) override { generator_.Seed(seed_.value_or(seed)); }
  float Next() override {
    if (queue_.empty())
      return generator_.Next();
    const float value = queue_.front();
    queue_.pop_front();
    return value;
  }

 private:
  app::MersenneRandom generator_;
  std::optional<std::uint32_t> seed_;
  std::deque<float> queue_;
};

/// Remembers the marker drawn last. Only airports have filled circles.
class LastMarker final : public map::Surface {
 public:
  std::optional<TwipPoint> Point() const { return point_; }

  void BeginLayer(map::Layer) override {}
  void Clear(data::Rgb) override {}
  void Polyline(std::span<const TwipPoint>, const map::Pen&) override {}
  void Rectangle(TwipPoint, TwipPoint, const map::Pen&) override {}
  void Circle(TwipPoint centre, std::int32_t, data::Rgb, bool fill) override {
    if (fill)
      point_ = centre;
  }
  void Text(TwipPoint, std::string_view, data::Rgb, const map::TextFont&) override {}

 private:
  std::optional<TwipPoint> point_;
};

}  // namespace

struct DrivenProgram::Parts {
  app::SystemClock clock;
  ScriptedRandom random;
  dialogs::QtMessageBoxes boxes;
  map::Recorder recorder;
  LastMarker lastMarker;
  map::TeeSurface observer{recorder, lastMarker};
  std::unique_ptr<app::RunningProgram> program;
};

DrivenProgram::DrivenProgram() : parts_(std::make_unique<Parts>()) {}
DrivenProgram::~DrivenProgram() = default;

void DrivenProgram::Seed(std::uint32_t seed) {
  parts_->random.SetSeed(seed);
}
void DrivenProgram::QueueRandom(const std::vector<float>& values) {
  parts_->random.Queue(values);
}

bool DrivenProgram::Start() {
  parts_->program = std::make_unique<app::RunningProgram>(
      app::Environment{app::WithSeparator(std::filesystem::current_path()), parts_->clock, parts_->random,
                       parts_->boxes, &parts_->observer});
  if (!parts_->program->Start())
    return false;
  // The first redraw happens when the windows process their first events.
  QApplication::processEvents();
  return true;
}

bool DrivenProgram::Running() const {
  return parts_->program && parts_->program->Running();
}
app::ProgramState& DrivenProgram::State() {
  return parts_->program->State();
}
QWidget& DrivenProgram::MainWindow() {
  return parts_->program->MainWindow();
}
app::frmMap& DrivenProgram::MapWindow() {
  return parts_->program->MainWindow().MapWindow();
}
const std::vector<map::Operation>& DrivenProgram::Operations() const {
  return parts_->recorder.Operations();
}
std::optional<TwipPoint> DrivenProgram::LastAirport() const {
  return parts_->lastMarker.Point();
}
int DrivenProgram::Draws() const {
  return parts_->program->MainWindow().MapWindow().Draws();
}

}  // namespace zerbal::drive
