#include "kalve/foundations/Rng.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <numbers>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/SharedConstants.h"

// From rand() ------------------------------------------------------------------------------------------

int gRandomSeed = 1;

int RandomUniformInteger(int n) {
  if (n == 0) return 0;
  // In single precision the highest draws round up to 2^31.
  const float product = static_cast<float>(std::rand()) * static_cast<float>(n);
  const auto drawn = static_cast<long>(static_cast<double>(product) / 2147483648.0);
  return static_cast<int>(n > 0 ? std::min<long>(drawn, n) : std::max<long>(drawn, n));
}

int RandomInteger(int n) { return RandomUniformInteger(n); }

double RandomNormalized() { return std::rand() / 2147483647.0; }

double RandomNormalDouble(double mean, double standardDeviation) {
  if (standardDeviation <= 0.0) NonPositiveStandardDeviation("RandomNormalDoubl", standardDeviation);
  const double u = RandomNormalized();
  const double v = RandomNormalized();
  return mean + standardDeviation * std::sqrt(-2.0 * std::log(u)) * std::cos(2.0 * std::numbers::pi * v);
}

// Seeding ----------------------------------------------------------------------------------------------

unsigned long RNG::tm = 1234567;

RNG::RNG() {
  init();
  zigset();
}

void RNG::init() {
  seed(static_cast<unsigned long>(std::time(nullptr)) + tm);
  tm += 123457;
}

void RNG::seed(unsigned long number) { z = w = jsr = jcong = number & 0xffffffffUL; }

// Uniform bits -----------------------------------------------------------------------------------------

unsigned long RNG::znew() { return z = 36969 * (z & 65535) + (z >> 16); }

unsigned long RNG::wnew() { return w = 18000 * (w & 65535) + (w >> 16); }

unsigned long RNG::MWC() {
  const unsigned long high = znew() << 16;
  return (high + wnew()) & 0xffffffffUL;
}

unsigned long RNG::SHR3() {
  jsr ^= jsr << 17;
  jsr ^= jsr >> 13;  // brings bits from above the 32nd back
  jsr ^= jsr << 5;
  return jsr &= 0xffffffffUL;
}

unsigned long RNG::CONG() { return jcong = (69069 * jcong + 1234567) & 0xffffffffUL; }

unsigned long RNG::rand_int32() {
  const unsigned long carried = MWC();
  const unsigned long mixed = carried ^ CONG();
  return (mixed + SHR3()) & 0xffffffffUL;
}

unsigned long RNG::rand_int() {
  const unsigned long low = rand_int32();
  return low | rand_int32() << 32;
}

double RNG::rand_open01() { return (static_cast<double>(rand_int()) + 1.0) / 18446744073709551616.0; }

// Normal and exponential laws --------------------------------------------------------------------------
//
// A density is covered by layers of equal area. Layer 0 is the base strip with the tail; layer i reaches out
// to w[i] * scale, and the part of it that lies under the density for sure is told by k[i].

unsigned long RNG::kn[128];
double RNG::wn[128];
double RNG::fn[128];
unsigned long RNG::ke[256];
double RNG::we[256];
double RNG::fe[256];

namespace {

/// `r` is where the tail begins, `v` the area of a layer.
template <int N, class Density, class Inverse>
void BuildLayers(double r, double v, double scale, unsigned long (&k)[N], double (&w)[N], double (&f)[N],
                 Density density, Inverse inverse) {
  const double base = v / density(r);
  k[0] = ULONG32(r / base * scale);
  k[1] = 0;
  w[0] = base / scale;
  w[N - 1] = r / scale;
  f[0] = 1.0;
  f[N - 1] = density(r);
  double outer = r;
  for (int i = N - 2; i >= 1; --i) {
    const double inner = inverse(v / outer + density(outer));
    k[i + 1] = ULONG32(inner / outer * scale);
    w[i] = inner / scale;
    f[i] = density(inner);
    outer = inner;
  }
}

}  // namespace

void RNG::zigset() {
  static bool isBuilt = false;
  if (isBuilt) return;
  isBuilt = true;
  BuildLayers(
      3.442619855899, 0.00991256303526217, 2147483648.0, kn, wn, fn,
      [](double x) { return std::exp(-0.5 * x * x); },
      [](double y) { return std::sqrt(-2.0 * std::log(y)); });
  BuildLayers(
      7.697117470131487, 0.003949659822581572, 4294967296.0, ke, we, fe,
      [](double x) { return std::exp(-x); }, [](double y) { return -std::log(y); });
}

double RNG::RNOR() {
  const long hz = UL32toSL32(rand_int32());
  const unsigned long iz = static_cast<unsigned long>(hz) & 127U;
  return ULONG32(std::labs(hz)) < kn[iz] ? static_cast<double>(hz) * wn[iz] : nfix(hz, iz);
}

/// The rare draws of RNOR: tail, wedge, or another try.
double RNG::nfix(long hz, unsigned long iz) {
  for (;;) {
    double x = static_cast<double>(hz) * wn[iz];
    if (iz == 0) {
      double y = 0.0;
      do {
        x = -std::log(rand_open01()) * 0.2904764;
        y = -std::log(rand_open01());
      } while (y + y < x * x);
      return hz > 0 ? 3.44262 + x : -3.44262 - x;
    }
    if (fn[iz] + rand_open01() * (fn[iz - 1] - fn[iz]) < std::exp(-0.5 * x * x)) return x;
    hz = UL32toSL32(rand_int32());
    iz = static_cast<unsigned long>(hz) & 127U;
    if (ULONG32(std::labs(hz)) < kn[iz]) return static_cast<double>(hz) * wn[iz];
  }
}

double RNG::REXP() {
  const unsigned long jz = rand_int32();
  const unsigned long iz = jz & 255U;
  return jz < ke[iz] ? static_cast<double>(jz) * we[iz] : efix(jz, iz);
}

/// The rare draws of REXP.
double RNG::efix(unsigned long jz, unsigned long iz) {
  for (;;) {
    if (iz == 0) return 7.69711 - std::log(rand_open01());
    const double x = static_cast<double>(jz) * we[iz];
    if (fe[iz] + rand_open01() * (fe[iz - 1] - fe[iz]) < std::exp(-x)) return x;
    jz = rand_int32();
    iz = jz & 255U;
    if (jz < ke[iz]) return static_cast<double>(jz) * we[iz];
  }
}

// Gamma law --------------------------------------------------------------------------------------------

double RNG::gamma(double a, double b) {
  if (a < 1.0) {
    const double upper = gamma(1.0 + a, b);
    return upper * std::pow(rand_open01(), 1.0 / a);
  }
  const double d = a - 1.0 / 3.0;
  const double c = 1.0 / std::sqrt(9.0 * d);
  for (;;) {
    const double x = RNOR();
    double v = 1.0 + c * x;
    if (v <= 0.0) continue;
    v = v * v * v;
    const double u = rand_open01();
    if (u < 1.0 - 0.0331 * x * x * x * x || std::log(u) < 0.5 * x * x + d * (1.0 - v + std::log(v)))
      return d * v / b;
  }
}

// Poisson law ------------------------------------------------------------------------------------------

namespace {

constexpr double rootOfTwoPi = 2.50662827463100050242;

int SaturatedToInt(double x) { return x < K_INTMAX ? static_cast<int>(x) : K_INTMAX; }

/// What algorithm PD keeps between draws. The mean of the set-up serves both branches.
struct PoissonSetup {
  double muprev = 0.0;
  double muprev2 = 0.0;  // mean of omega and the coefficients below it

  // Mean of 10 and above
  double s, d, big_l;
  double omega, b1, b2, c, c0, c1, c2, c3;

  // Mean below 10: pp[1] to pp[l] hold the distribution function as far as it was needed
  int m, l;
  double p, p0, q;
  double pp[36];

  void StartTable(double mu);
  void StartNormal(double mu);
  void StartHat(double mu);
  double AcceptanceOf(int pois, double mu, double& px, double& fx, double& fy) const;
};

PoissonSetup poissonSetup;

void PoissonSetup::StartTable(double mu) {
  muprev = mu;
  m = std::max(1, static_cast<int>(mu));
  l = 0;
  p = p0 = q = std::exp(-mu);
}

void PoissonSetup::StartNormal(double mu) {
  muprev = mu;
  s = std::sqrt(mu);
  d = 6.0 * mu * mu;
  big_l = std::floor(mu - 1.1484);
}

void PoissonSetup::StartHat(double mu) {
  muprev2 = mu;
  omega = 1.0 / (rootOfTwoPi * s);
  b1 = 1.0 / 24.0 / mu;
  b2 = 0.3 * b1 * b1;
  c3 = 1.0 / 7.0 * b1 * b2;
  c2 = b2 - 15.0 * c3;
  c1 = b1 - 6.0 * b2 + 45.0 * c3;
  c0 = 1.0 - b1 + 3.0 * b2 - 15.0 * c3;
  c = 0.1069 / mu;
}

/// The exact and the normal weight of a candidate: `py` (answered) times exp(px), and fy times exp(fx).
double PoissonSetup::AcceptanceOf(int pois, double mu, double& px, double& fx, double& fy) const {
  static constexpr double a[] = {-0.5,       0.3333333, -0.2500068, 0.2000118,
                                 -0.1661269, 0.1421878, -0.1384794, 0.1250060};
  static constexpr double factorial[] = {1.0, 1.0, 2.0, 6.0, 24.0, 120.0, 720.0, 5040.0, 40320.0, 362880.0};
  const double fk = pois;
  const double difmuk = mu - fk;
  const double x = (0.5 - difmuk) / s;
  const double x2 = x * x;
  fx = -0.5 * x2;
  fy = omega * (((c3 * x2 + c2) * x2 + c1) * x2 + c0);
  if (pois < 10) {
    px = -mu;
    return std::pow(mu, pois) / factorial[pois];
  }
  double del = 1.0 / 12.0 / fk;
  del -= 4.8 * del * del * del;
  const double v = difmuk / fk;
  if (std::fabs(v) <= 0.25) {
    double sum = 0.0;
    for (int i = 7; i >= 0; --i) sum = sum * v + a[i];
    px = fk * v * v * sum - del;
  } else {
    px = fk * std::log(1.0 + v) - difmuk - del;
  }
  return 1.0 / (rootOfTwoPi * std::sqrt(fk));
}

int PoissonByTable(RNG& generator, double mu) {
  PoissonSetup& t = poissonSetup;
  if (mu != t.muprev) t.StartTable(mu);
  for (;;) {
    const double u = generator.rand_open01();
    if (u <= t.p0) return 0;
    if (t.l > 0) {
      for (int k = u <= 0.458 ? 1 : std::min(t.l, t.m); k <= t.l; ++k)
        if (u <= t.pp[k]) return k;
      if (t.l == 35) continue;
    }
    for (int k = t.l + 1; k <= 35; ++k) {
      t.p *= mu / k;
      t.q += t.p;
      t.pp[k] = t.q;
      if (u <= t.q) {
        t.l = k;
        return k;
      }
    }
    t.l = 35;
  }
}

int PoissonByNormal(RNG& generator, double mu) {
  PoissonSetup& t = poissonSetup;
  if (mu != t.muprev) t.StartNormal(mu);
  const double g = mu + t.s * generator.RNOR();
  int pois = 0;
  double u = 0.0;
  if (g >= 0.0) {
    pois = SaturatedToInt(g);
    if (pois >= t.big_l || pois == K_INTMAX) return pois;
    const double difmuk = mu - pois;
    u = generator.rand_open01();
    if (t.d * u >= difmuk * difmuk * difmuk) return pois;
  }
  if (mu != t.muprev2) t.StartHat(mu);
  double px = 0.0;
  double fx = 0.0;
  double fy = 0.0;
  if (g >= 0.0) {
    const double py = t.AcceptanceOf(pois, mu, px, fx, fy);
    if (fy - u * fy <= py * std::exp(px - fx)) return pois;
  }
  for (;;) {  // from a double exponential hat
    const double e = generator.REXP();
    u = 2.0 * generator.rand_open01() - 1.0;
    const double deviation = u > 0.0 ? 1.8 + e : 1.8 - e;
    if (!(deviation > -0.6744)) continue;
    pois = SaturatedToInt(mu + t.s * deviation);
    const double py = t.AcceptanceOf(pois, mu, px, fx, fy);
    if (t.c * std::fabs(u) <= py * std::exp(px + e) - fy * std::exp(fx + e)) return pois;
  }
}

}  // namespace

int RNG::poisson(double mu) {
  if (!(mu > 0.0)) return 0;
  return mu < 10.0 ? PoissonByTable(*this, mu) : PoissonByNormal(*this, mu);
}

// Binomial law -----------------------------------------------------------------------------------------

namespace {

/// What both methods keep between draws. They work on the rarer outcome, of probability q.
struct BinomialSetup {
  double psave = -1.0;
  int nsave = -1;
  double q, np, ratio, g;  // ratio is q / (1 - q)

  double qn;  // inversion: probability of 0

  // BTPE: a triangle up to p1, a parallelogram up to p2, the left tail up to p3, the right one up to p4
  int m;
  double fm, npq, p1, xm, xl, xr, c, xll, xlr, p2, p3, p4;

  void Start(double p, int n);
  void StartRegions();
  bool Accepts(int ix, double v) const;
  bool StirlingAccepts(int ix, double logOfV) const;
};

BinomialSetup binomialSetup;

void BinomialSetup::Start(double p, int n) {
  psave = p;
  nsave = n;
  q = std::min(p, 1.0 - p);
  np = n * q;
  ratio = q / (1.0 - q);
  g = (n + 1.0) * q / (1.0 - q);
  if (np < 30.0)
    qn = std::pow(1.0 - q, n);
  else
    StartRegions();
}

void BinomialSetup::StartRegions() {
  fm = np + q;
  m = static_cast<int>(fm);
  npq = np * (1.0 - q);
  p1 = static_cast<int>(2.195 * std::sqrt(npq) - 4.6 * (1.0 - q)) + 0.5;
  xm = m + 0.5;
  xl = xm - p1;
  xr = xm + p1;
  c = 0.134 + 20.5 / (15.3 + m);
  double a = (fm - xl) / (fm - xl * q);
  xll = a * (1.0 + 0.5 * a);
  a = (xr - fm) / (xr * (1.0 - q));
  xlr = a * (1.0 + 0.5 * a);
  p2 = p1 * (1.0 + 2.0 * c);
  p3 = p2 + c / xll;
  p4 = p3 + c / xlr;
}

int BinomialByInversion(RNG& generator) {
  const BinomialSetup& t = binomialSetup;
  for (;;) {
    int ix = 0;
    double f = t.qn;
    double u = generator.rand_open01();
    while (u >= f && ix <= 110) {
      ++ix;
      u -= f;
      f *= t.g / ix - t.ratio;
    }
    if (u < f) return ix;
  }
}

bool BinomialSetup::Accepts(int ix, double v) const {
  const int k = std::abs(ix - m);
  if (k <= 20 || k >= npq / 2.0 - 1.0) {
    double f = 1.0;
    for (int i = m + 1; i <= ix; ++i) f *= g / i - ratio;
    for (int i = ix + 1; i <= m; ++i) f /= g / i - ratio;
    return v <= f;
  }
  const double squeeze = k / npq * ((k * (k / 3.0 + 0.625) + 0.1666666666666) / npq + 0.5);
  const double normal = -(static_cast<double>(k) * k / (2.0 * npq));
  const double logOfV = std::log(v);
  if (logOfV < normal - squeeze) return true;
  return logOfV <= normal + squeeze && StirlingAccepts(ix, logOfV);
}

/// Stirling's series for the logarithm of the ratio of the probabilities of the candidate and the mode, with
/// the four plus signs and the real mode of the published algorithm, so that its sequences are met.
bool BinomialSetup::StirlingAccepts(int ix, double logOfV) const {
  const auto correction = [](double x) {
    const double x2 = x * x;
    return (13860.0 - (462.0 - (132.0 - (99.0 - 140.0 / x2) / x2) / x2) / x2) / x / 166320.0;
  };
  const double x1 = ix + 1.0;
  const double f1 = fm + 1.0;
  const double z = nsave + 1.0 - fm;
  const double w = nsave - ix + 1.0;
  return logOfV <= xm * std::log(f1 / x1) + (nsave - m + 0.5) * std::log(z / w) +
                       (ix - m) * std::log(w * q / (x1 * (1.0 - q))) + correction(f1) + correction(z) +
                       correction(x1) + correction(w);
}

int BinomialByRegions(RNG& generator) {
  const BinomialSetup& t = binomialSetup;
  for (;;) {
    const double u = generator.rand_open01() * t.p4;
    double v = generator.rand_open01();
    if (u < t.p1) return static_cast<int>(t.xm - t.p1 * v + u);
    int ix = 0;
    if (u < t.p2) {
      const double x = t.xl + (u - t.p1) / t.c;
      v = v * t.c + 1.0 - std::fabs(t.xm - x) / t.p1;
      if (v > 1.0 || v <= 0.0) continue;
      ix = static_cast<int>(x);
    } else if (u < t.p3) {
      ix = static_cast<int>(t.xl + std::log(v) / t.xll);
      if (ix < 0) continue;
      v *= (u - t.p2) * t.xll;
    } else {
      ix = static_cast<int>(t.xr - std::log(v) / t.xlr);
      if (ix > t.nsave) continue;
      v *= (u - t.p3) * t.xlr;
    }
    if (t.Accepts(ix, v)) return ix;
  }
}

}  // namespace

int RNG::binomial(double p, int n) {
  if (n < 1 || !(p > 0.0)) return 0;
  if (p >= 1.0) return n;
  BinomialSetup& t = binomialSetup;
  if (p != t.psave || n != t.nsave) t.Start(p, n);
  const int x = t.np < 30.0 ? BinomialByInversion(*this) : BinomialByRegions(*this);
  return p > 0.5 ? n - x : x;
}

// Multinomial law --------------------------------------------------------------------------------------

void RNG::multinom(unsigned int n, const double* weights, unsigned int count, unsigned int* result) {
  if (count == 0) return;
  std::fill_n(result, count, 0U);
  if (n == 0) return;
  std::vector<double> shares(weights, weights + count);
  double sum = 0.0;
  for (double& share : shares) {
    if (!(share > 0.0)) share = 0.0;
    sum += share;
  }
  if (sum == 0.0) return;
  for (unsigned int k = 0; k < count - 1; ++k) {
    if (shares[k] > 0.0) {
      result[k] = static_cast<unsigned int>(binomial(shares[k] / sum, static_cast<int>(n)));
      n -= result[k];
    }
    if (n == 0) return;
    sum -= shares[k];
  }
  result[count - 1] = n;
}

void RNG::multinom(unsigned int n, const std::vector<double>& weights, std::vector<unsigned int>& result) {
  result.assign(weights.size(), 0U);
  multinom(n, weights.data(), static_cast<unsigned int>(weights.size()), result.data());
}
