#include "core/language.h"

#include <array>

namespace tarnvik {

namespace {

constexpr std::int16_t flag_true = -1;

struct Language {
    char Letter;
    std::int16_t Settings::*Flag;
};

constexpr std::array<Language, 5> languages = {{{'E', &Settings::LangEnglish},
                                                {'F', &Settings::LangFrench},
                                                {'S', &Settings::LangSpanish},
                                                {'G', &Settings::LangGerman},
                                                {'I', &Settings::LangItalian}}};

}  // namespace

void Set_Language(Settings& settings, char letter) {
    bool known = false;
    for (const Language& language : languages)
        known = known || language.Letter == letter;
    if (!known) return;
    for (const Language& language : languages) {
        settings.*language.Flag = language.Letter == letter ? flag_true : 0;
    }
}

void Add_Language(Settings& settings, std::string_view letter) {
    for (const Language& language : languages) {
        if (letter == std::string_view(&language.Letter, 1)) settings.*language.Flag = flag_true;
    }
}

std::string Language_Letter(const Settings& settings) {
    std::string letter;
    for (const Language& language : languages) {
        if (settings.*language.Flag != 0) letter = language.Letter;
    }
    return letter;
}

}  // namespace tarnvik
