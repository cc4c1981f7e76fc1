#include "support/ProductStat.h"

#include <QFileInfo>
#include <string>

#include "support/DebugOutput.h"
#include "support/MainIni.h"
#include "support/Paths.h"
#include "support/loader/SharedLibrary.h"

namespace qpt {

namespace {

std::u16string Utf16(const QString& text) {
    return text.toStdU16String();
}

QString LibraryPath(const QString& fileName) {
    if (fileName.compare(QLatin1String(kProductStatLibrary), Qt::CaseInsensitive) == 0)
        return ProgramFolder() + fileName;
    return fileName;
}

}  // namespace

bool TProductStat::Load(const QString& fileName) {
    if (loaded_) return true;
    const QByteArray path = QFile::encodeName(LibraryPath(fileName));
    // The library stays loaded for the life of the process: reports may still
    // be under way inside it when the process ends.
    const TSharedLibrary library(path.constData());
    if (!library.Loaded()) {
        DebugOutput(QStringLiteral("LoadSP Failed. ") +
                    QString::fromLocal8Bit(library.Error().c_str()));
        return false;
    }
    // Only the two entry points this program calls are looked up; either may
    // be missing.
    library.Find("SetStatParam", setStatParam_);
    library.Find("DoStatistic", doStatistic_);
    loaded_ = true;
    return true;
}

void TProductStat::SetParam(const QString& product, const QString& version, const QString& language,
                            const QString& url) {
    if (!setStatParam_) return;
    setStatParam_(Utf16(product).c_str(), Utf16(version).c_str(), Utf16(language).c_str(),
                  Utf16(url).c_str());
}

int32_t TProductStat::DoStatistic(const QString& product, const QString& code, int32_t value,
                                  int32_t a, int32_t b, int32_t c) {
    if (value == -2) {
        const QString mark = '|' + code.toLower() + '|';
        if (sentOnce_.contains(mark)) return 0;
        sentOnce_ += mark;
        value = 0;
    }
    if (!doStatistic_) return -1;
    return doStatistic_(Utf16(product).c_str(), Utf16(code).c_str(), value, a, b, c);
}

void TProductStat::Init(const QString& programFolder) {
    const QString library = programFolder + QLatin1String(kProductStatLibrary);
    if (!QFileInfo::exists(library)) return;
    if (!Load(library)) return;
    const QString language = ReadIniFile(programFolder + "Lang.dat", QStringLiteral("CusLan"),
                                         QStringLiteral("pr"), QStringLiteral("zelk"));
    SetParam(QLatin1String(kProductCode), GetHostVersion(programFolder), language,
             QLatin1String(kUsageStatUrl));
}

TProductStat& ProductStat() {
    static TProductStat instance;
    return instance;
}

bool LoadProductStat(const QString& fileName) {
    return ProductStat().Load(fileName);
}

void ProductSetParam(const QString& product, const QString& version, const QString& language,
                     const QString& url) {
    ProductStat().SetParam(product, version, language, url);
}

int32_t ProductDoStatistic(const QString& product, const QString& code, int32_t value, int32_t a,
                           int32_t b, int32_t c) {
    return ProductStat().DoStatistic(product, code, value, a, b, c);
}

void SendUsageCode(const QString& code) {
    ProductDoStatistic(QLatin1String(kProductCode), code, 0, 0, 0, 0);
}

void ProductStatInit(const QString& programFolder) {
    ProductStat().Init(programFolder);
}

}  // namespace qpt
