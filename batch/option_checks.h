#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace tarnvik {

// What an option may be. A value that is refused ends the run as wrong usage, with the reason.

/// A finite number from `least` to `most`. Infinities and letters behind a number are refused, which a plain
/// range lets through.
CLI::Validator Number_Between(double least, double most);
/// Any finite number.
CLI::Validator Any_Number();
/// A finite number above 0.
CLI::Validator Number_Above_0();

/// Numbers separated by commas; an empty list has none.
CLI::Validator List_Of_Numbers();
/// That many numbers separated by commas.
CLI::Validator So_Many_Numbers(std::size_t count);
/// Receivers, from 1, separated by commas, `most` of them at most.
CLI::Validator List_Of_Receivers(std::size_t most);
/// Two whole numbers "FIRST:LAST", from 1, the second one larger.
CLI::Validator First_And_Last();

/// The same where both may be one.
CLI::Validator First_To_Last();

/// A file name with one of these endings (".tv5"), whatever the case.
CLI::Validator Name_Ending_In(std::vector<std::string> endings);
/// A file that a picture can be written to.
CLI::Validator Picture_Name();

/// The numbers of a list that List_Of_Numbers let through.
std::vector<double> Numbers(const std::string& list);

}  // namespace tarnvik
