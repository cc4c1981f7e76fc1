// ReadMainIni and WriteMainIni open, parse and (for writes) rewrite the whole
// file on every call; this measures that cost on a large settings file.
#include <benchmark/benchmark.h>

#include <QDir>
#include <QTemporaryDir>
#include <cstdlib>

#include "support/MainIni.h"
#include "support/SafeIniFile.h"

namespace {

constexpr int kSections = 50;
constexpr int kKeysPerSection = 99;  // with the section lines: 5,000 lines

// A private HOME holding a Main.ini of 5,000 lines, for the whole run.
class LargeMainIni {
public:
    LargeMainIni() {
        ::setenv("HOME", QFile::encodeName(dir_.path()).constData(), 1);
        ::unsetenv("XDG_CONFIG_HOME");
        qpt::TSafeIniFile ini(qpt::MainIniPath());
        for (int s = 0; s < kSections; ++s)
            for (int k = 0; k < kKeysPerSection; ++k)
                ini.WriteString(QStringLiteral("Section%1").arg(s), QStringLiteral("Key%1").arg(k),
                                QStringLiteral("some value of moderate length %1").arg(k));
    }

private:
    QTemporaryDir dir_;
};

void Prepare() {
    static LargeMainIni file;
}

void BM_ReadMainIni(benchmark::State& state) {
    Prepare();
    for (auto _ : state)
        benchmark::DoNotOptimize(qpt::ReadMainIni("Section49", "Key98", QString()));
}
BENCHMARK(BM_ReadMainIni)->Unit(benchmark::kMillisecond);

void BM_WriteMainIni(benchmark::State& state) {
    Prepare();
    int n = 0;
    for (auto _ : state)
        qpt::WriteMainIni("Section25", "Key50", QString::number(++n));
}
BENCHMARK(BM_WriteMainIni)->Unit(benchmark::kMillisecond);

}  // namespace
