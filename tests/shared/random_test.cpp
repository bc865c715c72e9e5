// Random number generators: the published streams, seeding and default seeds, the Knuth classes'
// batches and clones, the Gaussian pair, the factory and its short names.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "quillon/random.h"

namespace quillon {
namespace {

std::vector<double> Draws(RndGen& gen, int32_t n) {
  std::vector<double> out(n);
  for (double& v : out) v = gen.Next();
  return out;
}

TEST(KnuthRoutines, PublishedChecks) {
  KnuthLagBuffer lag;
  std::vector<double> a(2009);
  KnuthStart02(lag, 310952);
  for (int m = 0; m < 2009; ++m) KnuthArray(lag, std::span<double>(a.data(), 1009));
  EXPECT_EQ(lag[0], 0.36410514377569680455);
  EXPECT_EQ(a[0], 0.40565695769206500110);
  KnuthStart02(lag, 310952);
  for (int m = 0; m < 1009; ++m) KnuthArray(lag, std::span<double>(a.data(), 2009));
  EXPECT_EQ(lag[0], 0.36410514377569680455);
  EXPECT_EQ(a[0], 0.04731923453148767500);
  // The earlier start routine's own published check.
  KnuthStart(lag, 310952);
  for (int m = 0; m < 2009; ++m) KnuthArray(lag, std::span<double>(a.data(), 1009));
  EXPECT_EQ(lag[0], 0.27452626307394156768);
}

// Seeding runs the start routine, makes three batches while discarding 252 values, and reads on
// from cell 53 of the third; an unseeded first draw starts with 314159 and discards nothing.
TEST(RndGenKnuth02, SeedingAndFirstUse) {
  KnuthLagBuffer lag;
  std::vector<double> batch(kKnuthBatch);
  KnuthStart02(lag, 42);
  for (int i = 0; i < 3; ++i) KnuthArray(lag, batch);
  RndGenKnuth02 seeded;
  seeded.Seed(42);
  EXPECT_EQ(seeded.Next(), batch[53]);
  EXPECT_EQ(seeded.Next(), batch[54]);

  KnuthStart02(lag, kKnuthDefaultSeed);
  KnuthArray(lag, batch);
  RndGenKnuth02 fresh;
  EXPECT_EQ(fresh.Next(), batch[0]);
  EXPECT_EQ(fresh.Next(), batch[1]);
  RndGenKnuth02 reseeded;
  reseeded.Seed(kKnuthDefaultSeed);
  EXPECT_NE(reseeded.Next(), batch[0]);
}

// Only the first 100 values of a batch are used: cell 100 ends it.
TEST(RndGenKnuth02, BatchEndsAtCellHundred) {
  KnuthLagBuffer lag;
  std::vector<double> first(kKnuthBatch), second(kKnuthBatch);
  KnuthStart02(lag, kKnuthDefaultSeed);
  KnuthArray(lag, first);
  KnuthArray(lag, second);
  RndGenKnuth02 gen;
  const std::vector<double> draws = Draws(gen, 102);
  EXPECT_EQ(draws[99], first[99]);
  EXPECT_EQ(draws[100], second[0]);
  EXPECT_EQ(draws[101], second[1]);
}

TEST(RndGenKnuth, DiffersFromTheNewerFormAndSeedsFromAnother) {
  RndGenKnuth older;
  RndGenKnuth02 newer;
  older.Seed(7);
  newer.Seed(7);
  EXPECT_NE(older.Next(), newer.Next());

  RndGenMTwister02 source, copy;
  source.Seed(1);
  copy.Seed(1);
  older.SeedFrom(source);
  const std::vector<double> taken = Draws(copy, 100);
  EXPECT_EQ(copy.Next(), source.Next()) << "SeedFrom draws exactly 100 values";
  // The lag buffer holds the draws last cell first; the first batch begins with it.
  KnuthLagBuffer lag;
  for (int i = 0; i < 100; ++i) lag[99 - i] = taken[i];
  std::vector<double> batch(kKnuthBatch);
  for (int i = 0; i < 3; ++i) KnuthArray(lag, batch);
  EXPECT_EQ(older.Next(), batch[53]);
}

// SeedFrom is a no-op everywhere else: neither generator's stream moves.
TEST(RndGen, SeedFromLeavesOtherClassesAlone) {
  for (int32_t type : {kRndGenMTwister, kRndGenLecuyer, kRndGenKnuth02, kRndGenMTwister02}) {
    auto gen = CreateRndGen(type), twin = CreateRndGen(type);
    RndGenMTwister02 source, sourceTwin;
    gen->SeedFrom(source);
    EXPECT_EQ(gen->Next(), twin->Next()) << type;
    EXPECT_EQ(source.Next(), sourceTwin.Next()) << type;
  }
}

// A clone reads on through its source's batch: after the source is reseeded, the clone's next
// value comes from the source's new batch.
TEST(RndGenKnuth02, CloneReadsThroughTheSourceBatch) {
  RndGenKnuth02 source;
  source.Seed(1);
  Draws(source, 10);
  auto clone = source.Clone();
  auto reference = source.Clone();
  EXPECT_EQ(clone->Next(), source.Next());
  source.Seed(2);
  KnuthLagBuffer lag;
  std::vector<double> batch(kKnuthBatch);
  KnuthStart02(lag, 2);
  for (int i = 0; i < 3; ++i) KnuthArray(lag, batch);
  // The clone stood at cell 64 of batch one (1 + 52 + 10 + 1); it now reads seed 2's third batch.
  EXPECT_EQ(clone->Next(), batch[64]);
  clone->Seed(3);
  reference->Seed(3);
  EXPECT_EQ(Draws(*clone, 300), Draws(*reference, 300)) << "a reseeded clone is independent";
}

TEST(RndGenMTwister02, PublishedStreams) {
  RndGenMTwister02 gen;
  gen.Seed(5489);
  std::mt19937 reference(5489);
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(gen.NextWord(), reference()) << i;
  RndGenMTwister02 unseeded;
  EXPECT_EQ(unseeded.NextWord(), 3499211612u);
  const uint32_t keys[] = {0x123, 0x234, 0x345, 0x456};
  gen.SeedByArray(keys);
  for (uint32_t expected : {1067595299u, 955945823u, 477289528u, 4107218783u, 4228976476u})
    EXPECT_EQ(gen.NextWord(), expected);
  gen.SeedByArray(keys);
  EXPECT_EQ(gen.Next(), 1067595299u * 2.3283064365386963e-10);
}

TEST(RndGenMTwister, SeedingOf1998AndLoadedState) {
  RndGenMTwister older, unseeded;
  RndGenMTwister02 newer;
  older.Seed(4357);
  newer.Seed(4357);
  const uint32_t first = older.NextWord();
  EXPECT_NE(first, newer.NextWord());
  EXPECT_EQ(unseeded.NextWord(), first) << "4357 is the default seed";
  // Loaded with the words that init_genrand(5489) makes, the older class gives the published
  // stream of the newer one.
  std::array<uint32_t, kMTwisterWords> words;
  words[0] = 5489;
  for (uint32_t i = 1; i < kMTwisterWords; ++i)
    words[i] = 1812433253u * (words[i - 1] ^ (words[i - 1] >> 30)) + i;
  RndGenMTwister loaded;
  loaded.LoadState(words);
  EXPECT_EQ(loaded.NextWord(), 3499211612u);
}

TEST(RndGenLecuyer, SeedsAtConstructionAndStaysInRange) {
  RndGenLecuyer made, seeded;
  seeded.Seed(0x98761234);
  const std::vector<double> draws = Draws(made, 10000);
  EXPECT_EQ(draws, Draws(seeded, 10000));
  double sum = 0;
  for (double v : draws) {
    ASSERT_GT(v, 0.0);
    ASSERT_LT(v, 1.0);
    sum += v;
  }
  EXPECT_NEAR(sum / draws.size(), 0.5, 0.02);
}

// Two draws use one pair; seeding between them drops the stored second value.
TEST(RndGen, GaussianPairsAndReseeding) {
  for (int32_t type = 0; type <= 4; ++type) {
    auto gen = CreateRndGen(type), twin = CreateRndGen(type);
    gen->Seed(11);
    twin->Seed(11);
    const double first = gen->Gauss();
    gen->Gauss();
    const std::vector<double> afterPair = Draws(*gen, 2);
    twin->Gauss();
    twin->Seed(11);
    EXPECT_EQ(twin->Gauss(), first) << "reseeding makes a fresh pair, type " << type;
    twin->Gauss();
    EXPECT_EQ(Draws(*twin, 2), afterPair) << "the second of a pair draws nothing, type " << type;
  }
  RndGenMTwister02 gen;
  gen.Seed(3);
  double sum = 0, squares = 0;
  for (int i = 0; i < 20000; ++i) {
    const double g = gen.Gauss();
    sum += g;
    squares += g * g;
  }
  EXPECT_NEAR(sum / 20000, 0.0, 0.05);
  EXPECT_NEAR(squares / 20000, 1.0, 0.05);
}

TEST(RndGenFactory, ShortNames) {
  const struct {
    const char* name;
    int32_t type;  // -1: no generator
  } cases[] = {
      {"kn", kRndGenKnuth02},   {" KN ", kRndGenKnuth02}, {"Kn", kRndGenKnuth02},
      {"KN4", kRndGenKnuth},    {"MT4 ", kRndGenMTwister}, {"mt", kRndGenMTwister02},
      {"LE", kRndGenLecuyer},   {"LE4", -1},              {"KN5", -1},
      {"MTX", -1},              {"", -1},                 {"K", -1},
      {"KN 4", -1},
  };
  for (const auto& c : cases) {
    int32_t type = -1;
    EXPECT_EQ(RndGenNameType(c.name, type), c.type >= 0) << c.name;
    auto gen = CreateRndGen(c.name);
    EXPECT_EQ(gen ? gen->Type() : -1, c.type) << c.name;
  }
  for (int32_t type = 0; type <= 4; ++type) EXPECT_EQ(CreateRndGen(type)->Type(), type);
  EXPECT_EQ(CreateRndGen(5), nullptr);
  EXPECT_EQ(CreateRndGen(-1), nullptr);
}

TEST(RndGenFactory, DefaultGenerator) {
  ASSERT_NE(DefaultRndGen(), nullptr);
  EXPECT_EQ(DefaultRndGen()->Type(), kRndGenKnuth02);
  EXPECT_EQ(CurrentRndGen(), DefaultRndGen());
  EXPECT_TRUE(ReplaceDefaultRndGen(kRndGenLecuyer));
  EXPECT_EQ(CurrentRndGen()->Type(), kRndGenLecuyer);
  EXPECT_FALSE(ReplaceDefaultRndGen(9));
  EXPECT_EQ(DefaultRndGen(), nullptr);
  EXPECT_EQ(CurrentRndGen(), nullptr);
  EXPECT_TRUE(ReplaceDefaultRndGen(kRndGenKnuth02));
}

}  // namespace
}  // namespace quillon
