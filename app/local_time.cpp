#include "app/local_time.h"

#include <ctime>

namespace tarnvik {

std::string Local_Time_Text(std::chrono::system_clock::time_point time, const char* pattern) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &seconds);
#else
    localtime_r(&seconds, &local);
#endif
    char text[32];
    return {text, std::strftime(text, sizeof text, pattern, &local)};
}

}  // namespace tarnvik
