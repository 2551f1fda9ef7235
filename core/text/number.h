#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnvik {

/// Numeric value of a text: the number it starts with, leading blanks skipped, the point as decimal separator
/// whatever the locale, "E" or "D" before an exponent, "&H" before hexadecimal digits (32 bits, signed; a
/// closing "&" is part of the form). Stops at the first character that is no part of a number; a text that
/// starts with none is 0.
double Val(std::string_view text);

/// The same, but nothing where the text starts with a number beyond the range of a double, which Val() counts
/// as 0.
std::optional<double> Number_In(std::string_view text);

/// Largest whole number not above `value` (rounding down towards minus infinity).
double Int(double value);

/// Nearest whole number, halves to even; no range.
double Rounded(double value);

/// Conversion to a 16-bit integer: nearest, halves to even. Nothing when the value does not fit or is no
/// number.
std::optional<std::int16_t> CInt(double value);

/// The same to a 32-bit integer.
std::optional<std::int32_t> CLng(double value);

/// CInt and CLng that end the computation with a Fault when the value does not fit.
std::int16_t CInt_Or_Fault(double value);
std::int32_t CLng_Or_Fault(double value);

/// Stores the value rounded to 16 bits if it fits; otherwise the target keeps what it held. Tells whether it
/// fitted.
bool Store_If_It_Fits(std::int16_t& target, double value);

/// Plain text of a number as it joins other text: no leading blank ("0.5", "-3", "1.5E-07"); at most 15
/// significant digits for a double, 7 for a float.
std::string CStr(double value);
std::string CStr(float value);
std::string CStr(int value);

/// "1" to `last`, the entries of a list of shots or receivers; none below 1.
std::vector<std::string> Numbers_Up_To(int last);

/// Text form with a leading blank for a number that is not negative and no zero before the point (" .9731",
/// "-.5").
std::string Str(double value);

/// Print rule: a blank or a minus sign, the number, one blank behind it (" 0.5 "). Scientific (" 1.234568E+07
/// ") as soon as the plain form needs more than 15 digits (float: 7) in all places.
std::string Print_Number(double value);
std::string Print_Number(float value);
std::string Print_Number(int value);

/// Number in a pattern of "#" and "0" with an optional point ("##00.00"). Halves round away from zero on the
/// 15-digit decimal form; a result of zero shows no minus sign.
std::string Format(double value, std::string_view pattern);

}  // namespace tarnvik
