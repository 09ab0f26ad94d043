// The scenes of the reference pictures.
#pragma once

#include <QImage>
#include <QRect>
#include <filesystem>
#include <string>
#include <vector>

namespace zerbal::test {

struct PictureScene {
  const char* name;
  const char* words;  ///< of zerbal-map's command line, without data and output; OLDER is the older world
};

/// Each is compared without letters, at scale 1 and 2.
inline constexpr PictureScene kPictureScenes[] = {
    {"overview", "--size 480x240"},
    {"detail", "--region FOUR --size 300x240 --show rivers,boundaries"},
    {"seam", "--view 110E,66N,110W,45S --size 400x300 --services all --labels symbols"},
    {"seam-detail", "--region DATE --size 300x200 --services all --labels symbols"},
    {"north-pole", "--view 60W,90N,60E,60N --size 320x90 --services all"},
    {"south-pole", "--view 40W,60S,60E,90S --size 320x100"},
    {"wide", "--size 640x50 --services all --labels none"},
    {"high", "--size 50x400 --services all --labels none"},
    {"everything",
     "--region NOR --size 320x260 --services all --show airports,destinations,rivers,boundaries,centre "
     "--labels airports,numbers,legs,symbols"},
    {"markers-overview", "--view 30W,66N,30E,50N --size 300x100 --show airports,destinations,centre"},
    {"markers-detail", "--view 3E,62N,20E,55N --size 240x160 --show airports,destinations,centre"},
    {"symbols-overview", "--view 9W,8N,10E,7S --size 240x200 --services FAN --labels airports,symbols"},
    {"compared", "--view 9W,8N,10E,7S --size 240x200 --compare OLDER --labels airports"},
    {"symbols-detail", "--view 4W,4N,5E,3S --size 240x200 --services FAN --labels airports,symbols"},
    {"great-circles",
     "--view 110E,66N,110W,45S --size 170x120 --services all --labels symbols --great-circles"},
    {"mercator", "--view 130W,75N,30W,10S --size 110x100 --projection mercator --land wheat"},
    {"robinson",
     "--size 180x100 --services all --labels none --great-circles --projection robinson --land wheat"},
    {"lambert",
     "--region NOR --size 110x90 --services all --labels none --great-circles --projection lambert"},
    {"orthographic",
     "--view 100W,80N,60E,10S --size 110x110 --services all --labels none --great-circles "
     "--projection orthographic --land wheat --water lightblue"},
    {"print-widths", "--region NOR --size 100x80 --services all --width-by flights --labels none"},
    {"print-frequency", "--region NOR --size 100x80 --services all --color-by frequency --labels none"},
    {"print-style", "--region NOR --size 100x80 --services all --style dark --show destinations"},
};

/// Compared with their letters too.
inline constexpr PictureScene kLetterScenes[] = {
    {"labels-overview", "--region NOR --size 320x260 --services NORX --labels airports,numbers,legs"},
    {"labels-detail", "--view 4W,4N,5E,3S --size 260x200 --services FAN --labels airports,numbers"},
};

/// Compared with their letters, which the rest makes way for.
inline constexpr PictureScene kPrintLetterScenes[] = {
    {"print-labels", "--region NOR --size 150x120 --services all --labels-placed"},
    {"print-furniture",
     "--size 260x150 --services NORX,FAN --labels none --color-by service --legend --title Routes "
     "--scale-bar=bottom-left --north --graticule 30"},
};

inline constexpr int kPictureScales[] = {1, 2};

struct DrawnScene {
  QImage picture;
  std::vector<QRect> letters;  ///< what letters can touch; empty when they are not drawn
};

/// `data` is the folder of the databases, with those of the older world in its folder kOlderFolder.
DrawnScene DrawScene(const PictureScene& scene, int scale, bool letters, const std::filesystem::path& data);

}  // namespace zerbal::test
