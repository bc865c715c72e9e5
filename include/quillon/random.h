// Uniform random number generators behind one base class: two lagged Fibonacci generators on
// doubles, two Mersenne Twisters and a combined multiple recursive generator, with a factory by
// type number or short name, a process-wide default and a Gaussian draw.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace quillon {

// ---- The base class ---------------------------------------------------------------------------

// A generator of uniform doubles. Unseeded generators seed themselves at first use; seeding at
// any time restarts the stream and drops a stored Gaussian value. No object is safe for use by
// two threads at once.
class RndGen {
 public:
  RndGen() = default;
  // A new generator of the same class with all state copied.
  virtual std::unique_ptr<RndGen> Clone() const = 0;
  virtual ~RndGen() = default;
  // 0 to 4, as kRndGenKnuth ... kRndGenMTwister02.
  virtual int32_t Type() const = 0;
  // Seeds from another generator's draws; only RndGenKnuth does so, the others stay as they are.
  virtual void SeedFrom(RndGen& other);
  virtual void Seed(uint32_t seed) = 0;
  // The next uniform double in [0, 1).
  virtual double Next() = 0;

  // A standard normal draw by the polar method. Draws come in pairs: every second call hands out
  // the value stored by the one before.
  double Gauss();

 protected:
  RndGen(const RndGen&) = default;
  RndGen& operator=(const RndGen&) = default;

  uint8_t gauss_fresh = 1;  // 1: the next Gaussian draw makes a new pair
  double gauss_stored = 0;  // second value of the last pair
};

// Type numbers. ORDER RndGenType: the factory's switch and the short names follow it.
inline constexpr int32_t kRndGenKnuth = 0;
inline constexpr int32_t kRndGenMTwister = 1;
inline constexpr int32_t kRndGenLecuyer = 2;
inline constexpr int32_t kRndGenKnuth02 = 3;
inline constexpr int32_t kRndGenMTwister02 = 4;

// ---- Lagged Fibonacci generators on doubles ---------------------------------------------------

inline constexpr int32_t kKnuthLongLag = 100;
inline constexpr int32_t kKnuthShortLag = 37;
inline constexpr int32_t kKnuthBatch = 1009;
inline constexpr uint32_t kKnuthDefaultSeed = 314159;

using KnuthLagBuffer = std::array<double, kKnuthLongLag>;

// The published routines, on a caller's lag buffer. KnuthArray fills out with the next
// out.size() values and moves the lag buffer on; it does nothing for fewer than kKnuthLongLag.
// KnuthStart02 is the start routine of 2002; KnuthStart the earlier form, whose streams differ.
void KnuthArray(KnuthLagBuffer& lag, std::span<double> out);
void KnuthStart02(KnuthLagBuffer& lag, uint32_t seed);
void KnuthStart(KnuthLagBuffer& lag, uint32_t seed);

// State of both lagged Fibonacci classes. Values are read from the batch by pointer until the
// end mark (-1.0 in cell kKnuthLongLag) or one of the class's two sentinel cells is met.
struct KnuthStream {
  // The next value of the batch; false at the negative sentinel that ends it.
  bool Take(double* value) {
    if (*next < 0) return false;
    *value = *next++;
    return true;
  }

  KnuthLagBuffer lag{};
  std::array<double, kKnuthBatch> batch{};
  const double* next = nullptr;
};

// The draw shared by both lagged Fibonacci classes: values come from the batch until its end
// mark, and the class refills it there.
class RndGenLaggedFibonacci : public RndGen {
 public:
  double Next() final {
    double value;
    return stream_.Take(&value) ? value : NextBatch();
  }

 protected:
  // Met at an end mark: refills the batch and returns its first value.
  virtual double NextBatch() = 0;

  KnuthStream stream_;
};

// The lagged Fibonacci generator with the start routine of 2002 ("KN"). Seeding discards the
// first 252 values; a first draw without seeding starts with kKnuthDefaultSeed and discards none.
// A clone goes on reading its source's batch until its own next batch: drop a clone before its
// source, or seed it first.
class RndGenKnuth02 : public RndGenLaggedFibonacci {
 public:
  RndGenKnuth02();
  std::unique_ptr<RndGen> Clone() const override;
  int32_t Type() const override { return kRndGenKnuth02; }
  void Seed(uint32_t seed) override;

 private:
  double NextBatch() override;
};

// The earlier form ("KN4"): the earlier start routine, and seeding from another generator.
class RndGenKnuth : public RndGenLaggedFibonacci {
 public:
  RndGenKnuth();
  std::unique_ptr<RndGen> Clone() const override;
  int32_t Type() const override { return kRndGenKnuth; }
  // Fills the lag buffer, last cell first, with 100 of other's draws.
  void SeedFrom(RndGen& other) override;
  void Seed(uint32_t seed) override;

 private:
  double NextBatch() override;
};

// ---- Mersenne Twisters ------------------------------------------------------------------------

inline constexpr int32_t kMTwisterWords = 624;

struct MTwisterState {
  std::array<uint32_t, kMTwisterWords> words{};
  // kMTwisterWords + 1: never seeded; kMTwisterWords: a refill is due.
  int32_t index = kMTwisterWords + 1;
};

// MT19937 with the seeding of 1998 ("MT4"); 4357 when used unseeded.
class RndGenMTwister : public RndGen {
 public:
  RndGenMTwister() = default;
  std::unique_ptr<RndGen> Clone() const override;
  int32_t Type() const override { return kRndGenMTwister; }
  void Seed(uint32_t seed) override;
  double Next() final;
  // The tempered 32-bit word that Next scales.
  uint32_t NextWord();
  // Takes 624 words as the state; a refill follows.
  void LoadState(std::span<const uint32_t, kMTwisterWords> words);

 private:
  MTwisterState state_;
};

// MT19937 with the seeding of 2002 ("MT"); 5489 when used unseeded.
class RndGenMTwister02 : public RndGen {
 public:
  RndGenMTwister02() = default;
  std::unique_ptr<RndGen> Clone() const override;
  int32_t Type() const override { return kRndGenMTwister02; }
  void Seed(uint32_t seed) override;
  double Next() final;
  uint32_t NextWord();
  // Seeding by an array of keys, as the 2002 form publishes it.
  void SeedByArray(std::span<const uint32_t> keys);

 private:
  MTwisterState state_;
};

// ---- Combined multiple recursive generator ----------------------------------------------------

// MRG32k5a ("LE"), seeded with 0x98761234 at construction.
class RndGenLecuyer : public RndGen {
 public:
  RndGenLecuyer();
  std::unique_ptr<RndGen> Clone() const override;
  int32_t Type() const override { return kRndGenLecuyer; }
  void Seed(uint32_t seed) override;
  double Next() final;

 private:
  std::array<double, 10> state_{};  // five values of each component, oldest first
};

// ---- Factory, names and the default generator -------------------------------------------------

// A new generator of a type number; empty for any other number or when allocation fails.
std::unique_ptr<RndGen> CreateRndGen(int32_t type);
// By short name: blanks, "KN", "MT" or "LE" in any case, "4" for the older Knuth or Twister,
// blanks, end. Empty for anything else.
std::unique_ptr<RndGen> CreateRndGen(std::string_view shortName);
// The same parse; stores the type number and reports whether the name is one.
bool RndGenNameType(std::string_view shortName, int32_t& type);

// The process-wide default and current generators, both a RndGenKnuth02 from the start.
RndGen* DefaultRndGen();
RndGen* CurrentRndGen();
// Releases the default and makes a new one of a type; both pointers then point at it. A bad type
// leaves both empty, and reports false.
bool ReplaceDefaultRndGen(int32_t type);

// A seed from the clock: the time in seconds mixed with a high-resolution counter.
uint32_t ClockSeed();

}  // namespace quillon
