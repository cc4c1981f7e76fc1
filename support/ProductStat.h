#pragma once

#include <QString>
#include <cstdint>

namespace qpt {

// The optional usage-statistics library beside the program.
inline constexpr char kProductStatLibrary[] = "libProductStatistics.so";
inline constexpr char kProductCode[] = "qpt1";
// Where the library sends its reports; the host is a deployment setting.
inline constexpr char kUsageStatUrl[] = "https://stat.invalid/iusage.php";

// Wrapper of the usage-statistics library. Everything it offers is optional:
// with no library, or a library without an entry point, each call is a quiet
// no-op and reports answer -1.
class TProductStat {
public:
    // Loads the library once; later calls keep the first one. The bare library
    // name means the copy in the program folder. False when it cannot load.
    bool Load(const QString& fileName);
    bool IsLoaded() const { return loaded_; }

    void SetParam(const QString& product, const QString& version, const QString& language,
                  const QString& url);

    // Value -2 reports a code only the first time in this object's life; it
    // then answers 0 for the repeats.
    int32_t DoStatistic(const QString& product, const QString& code, int32_t value, int32_t a,
                        int32_t b, int32_t c);

    // Start-up step: when the library lies in the folder, load it and hand it
    // the product code, the host version, the language code of "Lang.dat"
    // and the endpoint.
    void Init(const QString& programFolder);

private:
    using SetStatParamFn = void (*)(const char16_t*, const char16_t*, const char16_t*,
                                    const char16_t*);
    using DoStatisticFn = int32_t (*)(const char16_t*, const char16_t*, int32_t, int32_t, int32_t,
                                      int32_t);

    bool loaded_ = false;
    SetStatParamFn setStatParam_ = nullptr;
    DoStatisticFn doStatistic_ = nullptr;
    QString sentOnce_;
};

// The process-wide wrapper and the routines the forms call.
TProductStat& ProductStat();
bool LoadProductStat(const QString& fileName);
void ProductSetParam(const QString& product, const QString& version, const QString& language,
                     const QString& url);
int32_t ProductDoStatistic(const QString& product, const QString& code, int32_t value, int32_t a,
                           int32_t b, int32_t c);
// Reports one user action, such as "a302" for the rectangle tool.
void SendUsageCode(const QString& code);
void ProductStatInit(const QString& programFolder);

}  // namespace qpt
