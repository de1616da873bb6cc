// What is painted, against the pictures in tests/data/pictures. After a change of the drawing that is meant,
// look at the new pictures and run the tests once with ROLLWICK_REWRITE_PICTURES=1, which rewrites them.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <algorithm>
#include <cstdint>

namespace rollwick {

// Fonts and processors draw edges a little differently; a missing button is more than this.
inline constexpr double kMostMeanDifference = 1.5;    // of 255, over all channels
inline constexpr double kMostStrangePixels = 0.0002;  // part of all pixels that differ by more than kStrange
inline constexpr int kStrange = 56;

// Twelve bits a pixel are enough, and make small files.
inline QImage Coarse(const QImage& image) {
  return image.convertToFormat(QImage::Format_RGB444).convertToFormat(QImage::Format_RGB32);
}

struct Difference {
  double mean = 0;
  double strange = 0;
};

inline Difference Compare(const QImage& a, const QImage& b) {
  std::int64_t sum = 0, strange = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QRgb one = a.pixel(x, y), other = b.pixel(x, y);
      const int parts[] = {std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                           std::abs(qBlue(one) - qBlue(other))};
      sum += parts[0] + parts[1] + parts[2];
      strange += *std::max_element(std::begin(parts), std::end(parts)) > kStrange;
    }
  }
  const double pixels = static_cast<double>(a.width()) * a.height();
  return {static_cast<double>(sum) / (3 * pixels), static_cast<double>(strange) / pixels};
}

inline void ExpectLikeGolden(const char* name, const QImage& painted,
                             double mostStrange = kMostStrangePixels) {
  const QString path = QString(ROLLWICK_TEST_DATA) + "/pictures/" + name + ".png";
  const QImage now = Coarse(painted);
  if (qEnvironmentVariableIntValue("ROLLWICK_REWRITE_PICTURES") == 1) {
    QDir().mkpath(QFileInfo(path).path());
    ASSERT_TRUE(now.convertToFormat(QImage::Format_RGB888).save(path, "PNG", 0));
    return;
  }
  const QImage golden = QImage(path).convertToFormat(QImage::Format_RGB32);
  ASSERT_FALSE(golden.isNull()) << path.toStdString();
  ASSERT_EQ(now.size(), golden.size());
  const Difference found = Compare(now, golden);
  EXPECT_LE(found.mean, kMostMeanDifference);
  EXPECT_LE(found.strange, mostStrange);
  if (!testing::Test::HasFailure()) return;
  const QString kept = QDir::tempPath() + "/rollwick-picture-" + name + ".png";
  now.save(kept);
  ADD_FAILURE() << "what was painted is in " << kept.toStdString();
}

}  // namespace rollwick
