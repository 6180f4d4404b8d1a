// Random numbers, from two sources.
//
// The global functions draw from the system library's rand(). Every random decision of the kernel itself
// goes through them. The kernel never seeds rand(), so a run repeats itself unless the application seeds it.
//
// RNG is a generator with the classical laws, for applications: a simulation owns one, and nothing in the
// kernel draws from it. It seeds itself from the time of day.
#pragma once

#include <vector>

/// For applications; the kernel neither reads nor writes it.
extern int gRandomSeed;

/// An integer from 0 to n, n included but very rare: whoever indexes with the answer clamps it. 0 draws
/// nothing; a negative n gives n to 0.
int RandomUniformInteger(int n);
/// Another name of RandomUniformInteger.
int RandomInteger(int n);
/// A real in [0, 1].
double RandomNormalized();
/// A draw of the normal law. A deviation that is not above 0 is NonPositiveStandardDeviation; about once in
/// 2^31 draws the answer is infinite.
double RandomNormalDouble(double mean, double standardDeviation);

/// The low 32 bits.
inline unsigned long ULONG32(long x) { return static_cast<unsigned long>(x) & 0xffffffffUL; }
inline unsigned long ULONG32(double x) { return ULONG32(static_cast<long>(x)); }
/// A value of 32 bits read as signed.
inline long UL32toSL32(unsigned long x) { return static_cast<int>(static_cast<unsigned>(x)); }

/// No operation checks its parameters. Set-up computed for one parameter value is kept, for all generators
/// together, until another value comes, so that repeated values are fast.
class RNG {
 public:
  /// Seeded by init().
  RNG();
  ~RNG() = default;

  /// Seeds from the time of day, differently at each call, even within a second.
  void init();
  /// Seeds from a number, to repeat a run: equal numbers give equal sequences. 0 leaves three of the four
  /// generators at 0 and is a poor seed.
  void seed(unsigned long number);
  /// Builds the tables of RNOR and REXP, the first time that it is called.
  void zigset();

  // Uniform bits: the KISS generator of G. Marsaglia, "Random numbers for C: The END?", 1999, and its parts.
  // SHR3 shifts in 64 bits before it cuts to 32, so it and all that builds on it differ from the published
  // sequences.
  unsigned long znew();
  unsigned long wnew();
  unsigned long MWC();
  unsigned long SHR3();
  unsigned long CONG();
  /// 32 random bits.
  unsigned long rand_int32();
  /// 64 random bits.
  unsigned long rand_int();
  /// Uniform between 0 and 1. 0 never comes; 1 only by rounding, once in 2^54 draws.
  double rand_open01();

  // Laws
  /// Standard normal and standard exponential, by the ziggurat of G. Marsaglia and W. W. Tsang, "The Ziggurat
  /// Method for Generating Random Variables", 2000.
  double RNOR();
  double REXP();
  /// Gamma of shape a and rate b, by G. Marsaglia and W. W. Tsang, "A Simple Method for Generating Gamma
  /// Variables", 2000.
  double gamma(double a, double b);
  /// Poisson, by algorithm PD of J. H. Ahrens and U. Dieter, "Computer Generation of Poisson Deviates from
  /// Modified Normal Distributions", 1982. 0 for a mean not above 0; at most K_INTMAX.
  int poisson(double mu);
  /// Successes among n trials, by algorithm BTPE of V. Kachitvichyanukul and B. W. Schmeiser, "Binomial
  /// Random Variate Generation", 1988; by inversion for small means. A probability outside [0, 1] counts as
  /// the nearer bound.
  int binomial(double p, int n);
  /// Shares n, at most K_INTMAX, among `count` classes in proportion to their weights, one conditional
  /// binomial draw after another. A weight that is negative or no number counts as 0; without any weight
  /// all results are 0.
  void multinom(unsigned int n, const double* weights, unsigned int count, unsigned int* result);
  /// The same; `result` takes the size of `weights`.
  void multinom(unsigned int n, const std::vector<double>& weights, std::vector<unsigned int>& result);

 private:
  double nfix(long hz, unsigned long iz);
  double efix(unsigned long jz, unsigned long iz);

  // The states, always within 32 bits.
  unsigned long z;
  unsigned long w;
  unsigned long jsr;
  unsigned long jcong;

  static unsigned long tm;  // added to the time of day
  static unsigned long kn[128];
  static double wn[128];
  static double fn[128];
  static unsigned long ke[256];
  static double we[256];
  static double fe[256];
};
