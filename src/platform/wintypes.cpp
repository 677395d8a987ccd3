#include "platform/wintypes.h"

namespace {
constexpr int64_t kTicksPerSecond = 10'000'000;
constexpr int64_t kSecondsFrom1601To1970 = 11'644'473'600;

// Days since 1970-01-01 to a civil date (proleptic Gregorian).
void CivilFromDays(int64_t z, int& y, unsigned& m, unsigned& d) {
    z += 719468;
    const int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const unsigned doe = unsigned(z - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int64_t yy = int64_t(yoe) + era * 400;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    d = doy - (153 * mp + 2) / 5 + 1;
    m = mp < 10 ? mp + 3 : mp - 9;
    y = int(yy + (m <= 2));
}
}  // namespace

bool FileTimeToSystemTime(const FILETIME& ft, SYSTEMTIME& st) {
    const uint64_t ticks = (uint64_t(ft.dwHighDateTime) << 32) | ft.dwLowDateTime;
    if (ticks >= 0x8000000000000000ULL) return false;
    const int64_t totalSeconds = int64_t(ticks / kTicksPerSecond);
    const int64_t days = totalSeconds / 86400;
    const int64_t secondsOfDay = totalSeconds % 86400;
    int y = 0;
    unsigned m = 0, d = 0;
    CivilFromDays(days - kSecondsFrom1601To1970 / 86400, y, m, d);
    st.wYear = uint16_t(y);
    st.wMonth = uint16_t(m);
    st.wDay = uint16_t(d);
    st.wDayOfWeek = uint16_t((days + 1) % 7);  // 1601-01-01 was a Monday
    st.wHour = uint16_t(secondsOfDay / 3600);
    st.wMinute = uint16_t(secondsOfDay / 60 % 60);
    st.wSecond = uint16_t(secondsOfDay % 60);
    st.wMilliseconds = uint16_t(ticks % kTicksPerSecond / 10'000);
    return true;
}

FILETIME FileTimeFromUnix(int64_t secondsSinceEpoch) {
    // Before 1601 there is nothing to show; past the last representable
    // tick the value is held at the maximum rather than wrapping around.
    constexpr int64_t kMaxSeconds = INT64_MAX / kTicksPerSecond;
    if (secondsSinceEpoch < -kSecondsFrom1601To1970) return FILETIME{};
    if (secondsSinceEpoch > kMaxSeconds - kSecondsFrom1601To1970) return FILETIME{0xFFFFFFFF, 0x7FFFFFFF};
    const uint64_t ticks = uint64_t(secondsSinceEpoch + kSecondsFrom1601To1970) * kTicksPerSecond;
    return FILETIME{uint32_t(ticks & 0xFFFFFFFF), uint32_t(ticks >> 32)};
}
