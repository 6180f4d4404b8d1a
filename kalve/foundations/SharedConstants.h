// Limits, markers and separators that every subsystem shares, and the shared text buffers.
#pragma once

/// -9 means unset or absent for every identifier, position and clock; data files carry it.
inline constexpr int K_INT_UNSIGNIFICANT = -9;
/// Marks a real field without value.
inline constexpr double K_FLOAT_UNSIGNIFICANT = -9999.0;

inline constexpr int K_INTMAX = 2147483647;
/// The mirror of K_INTMAX, one above the smallest int.
inline constexpr int K_INTMIN = -2147483647;
inline constexpr float K_FLOATMAX = 3.4028234663852886e+38F;
inline constexpr float K_FLOATMIN = -3.4028234663852886e+38F;
inline constexpr double K_DOUBLEMAX = 1.7976931348623157e+308;
inline constexpr double K_DOUBLEMIN = -1.7976931348623157e+308;

/// The smallest normal number of its type, not the distance between neighbours: checks of probabilities
/// tolerate no more than this.
inline constexpr float K_float_EPS = 1.1754943508222875e-38F;
inline constexpr double K_double_EPS = 2.2250738585072014e-308;

/// Bytes of a text field read from a data file, final zero included.
inline constexpr int gFieldMaxSize = 50;

/// Joins class name and number in an instance name.
inline constexpr const char* gUnderscore = "_";
/// Label of a method's body.
inline constexpr const char* gBodyLabel = "Body";

/// Separators of the control protocol. The kernel never points them elsewhere.
inline const char* majSep = " | ";
inline const char* minSep = " ; ";

/// Shared buffers: each is filled by one call and read at once by its caller, before the next call.
inline constexpr int gTimeStringSize = 50;
inline constexpr int gInstanceNameStringSize = 80;
inline constexpr int gGlobalStringSize = 100;
extern char gTimeString[gTimeStringSize];                  ///< dates and durations
extern char gInstanceNameString[gInstanceNameStringSize];  ///< composed instance names
extern char gGlobalString[gGlobalStringSize];
