#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "embedded_host/host_progress.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

/// A reader with a gauge whose place is set by hand.
struct GaugedReader {
  explicit GaugedReader(std::int32_t length) : source("x") {
    egfhost::clearGaugeCounts();
    reader.StartGasGauge(source.stream(), "caption");
    reader.buffer.fileLength = length;
  }
  int ticksAt(int pass, std::int32_t index) {
    reader.pass = pass;
    reader.buffer.fileIndex = index;
    reader.UpdateGasGauge();
    return reader.gaugeTicks;
  }

  TextSource source;
  CHandlerReader reader;
};

TEST(Gauge, BothPassesShareOneBar) {
  GaugedReader gauge(1000);
  EXPECT_EQ(gauge.ticksAt(1, 500), 25);
  EXPECT_EQ(gauge.ticksAt(2, 500), 75);
  EXPECT_EQ(gauge.ticksAt(2, 1000), 100);
  EXPECT_EQ(egfhost::gaugeCounts().hits, 100U);
  EXPECT_EQ(gauge.ticksAt(1, 0), 100);
}

TEST(Gauge, LongFilesStallWhere32BitsEnd) {
  GaugedReader gauge(20000000);
  EXPECT_EQ(gauge.ticksAt(2, 1474836), 53);
  EXPECT_EQ(gauge.ticksAt(2, 1474837), 53);
  EXPECT_EQ(gauge.ticksAt(2, 20000000), 53);
}

TEST(Gauge, LongerFilesStallEarlier) {
  GaugedReader gauge(50000000);
  int ticks = 0;
  for (int pass = 1; pass <= 2; ++pass) {
    for (std::int32_t index = 0; index <= 50000000; index += 10000) {
      ticks = gauge.ticksAt(pass, index);
    }
  }
  EXPECT_EQ(ticks, 21);
}

TEST(Gauge, NoLengthGoesBeyondALevel) {
  for (const std::int32_t length :
       {0, 1, 0x3fffffff, 0x40000000, 2000000000, 0x7ffffffe, 0x7fffffff}) {
    GaugedReader gauge(length);
    for (int pass = 1; pass <= 2; ++pass) {
      for (int part = 0; part <= 16; ++part) {
        const auto index = static_cast<std::int32_t>(std::int64_t{length} * part / 16);
        EXPECT_LE(gauge.ticksAt(pass, index), 101) << length;
      }
    }
  }
}

/// Where ticks come does not depend on which updates are spared.
TEST(Gauge, TheThresholdMissesNoTick) {
  for (const std::int32_t length :
       {1, 7, 99, 100, 101, 1000, 12345, 11000000, 20000000, 50000000}) {
    GaugedReader every(length);
    GaugedReader spared(length);
    const std::int32_t step = length / 5000 + 1;
    for (int pass = 1; pass <= 2; ++pass) {
      spared.reader.pass = pass;
      spared.reader.state.gaugeThreshold = 0;
      for (std::int32_t index = 0; index <= length; index += step) {
        spared.reader.buffer.fileIndex = index;
        spared.reader.stepGauge();
        ASSERT_EQ(spared.reader.gaugeTicks, every.ticksAt(pass, index))
            << length << " at " << index << " in pass " << pass;
      }
    }
  }
}

TEST(Gauge, FinishesAtExactly101) {
  for (const int index : {0, 300, 1000}) {
    GaugedReader gauge(1000);
    gauge.ticksAt(2, index);
    gauge.reader.FinishGasGauge();
    const egfhost::GaugeCounts counts = egfhost::gaugeCounts();
    EXPECT_EQ(counts.hits, 101U);
    EXPECT_EQ(counts.starts, 1U);
    EXPECT_EQ(counts.levels, 1U);
    EXPECT_EQ(counts.levelEnds, 1U);
    EXPECT_EQ(counts.ends, 1U);
    EXPECT_EQ(gauge.reader.gaugeBar, 0U);
    EXPECT_EQ(gauge.reader.gaugeLevel, 0U);
  }
}

TEST(Gauge, WithoutALevelNothingHappens) {
  egfhost::clearGaugeCounts();
  CHandlerReader reader;
  reader.gaugeTicks = 5;
  EXPECT_EQ(reader.FinishGasGauge(), 0);
  EXPECT_EQ(reader.UpdateGasGauge(), 0);
  EXPECT_EQ(reader.gaugeTicks, 5);
  EXPECT_EQ(egfhost::gaugeCounts().hits, 0U);
  EXPECT_EQ(egfhost::gaugeCounts().ends, 0U);
}

TEST(Gauge, OneBarAtATime) {
  GaugedReader gauge(1000);
  gauge.ticksAt(1, 500);
  gauge.reader.StartGasGauge(gauge.source.stream(), "again");
  EXPECT_EQ(egfhost::gaugeCounts().starts, 1U);
  EXPECT_EQ(gauge.reader.gaugeTicks, 25);
}

TEST(Gauge, TakesTheFilesNameForACaption) {
  std::vector<std::string> captions;
  egfhost::setGaugeListener([&](const egfhost::GaugeEvent& event) {
    if (event.step == egfhost::GaugeStep::kStart) captions.push_back(event.caption);
  });
  TextSource source("<svg>", "picture.svg");
  {
    CHandlerReader reader;
    reader.StartGasGauge(source.stream(), nullptr);
  }
  CHandlerReader reader;
  reader.StartGasGauge(source.stream(), "given");
  egfhost::setGaugeListener({});
  EXPECT_EQ(captions, (std::vector<std::string>{"picture.svg", "given"}));
}

TEST(Gauge, AReadEndsItsBar) {
  egfhost::clearGaugeCounts();
  EXPECT_EQ(readText("<svg></svg>").result, 0);
  EXPECT_EQ(egfhost::gaugeCounts().hits, 101U);
  EXPECT_EQ(egfhost::gaugeCounts().ends, 1U);
}

TEST(Gauge, AnEmptySourceLeavesItsBarOpen) {
  egfhost::clearGaugeCounts();
  TextSource source("");
  {
    CHandlerReader reader;
    EXPECT_EQ(readWith(reader, source.stream()).result, -5217);
    EXPECT_EQ(egfhost::gaugeCounts().starts, 1U);
    EXPECT_EQ(egfhost::gaugeCounts().hits, 0U);
    EXPECT_EQ(egfhost::gaugeCounts().ends, 0U);
    EXPECT_EQ(readWith(reader, source.stream()).result, -5217);
    EXPECT_EQ(egfhost::gaugeCounts().starts, 1U);
  }
  EXPECT_EQ(egfhost::gaugeCounts().ends, 1U);
  EXPECT_EQ(egfhost::gaugeCounts().levelEnds, 1U);
}

TEST(Gauge, ALaterReadBeginsInTheSecondHalf) {
  TextSource source("<svg><rect><rect></svg>");
  CHandlerReader reader;
  EXPECT_EQ(reader.pass, 1);
  readWith(reader, source.stream());
  EXPECT_EQ(reader.pass, 2);
  reader.buffer.setFileHandle(source.stream());
  reader.StartGasGauge(source.stream(), "caption");
  reader.GetNextTag(nullptr);
  EXPECT_GE(reader.gaugeTicks, 50);
}

}  // namespace
}  // namespace egfsvg::test
