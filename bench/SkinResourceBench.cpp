// Start-up cost of the skin: registering the public package and a skin and
// building every table from them, the swap to the double-size skin with its
// graphics refilled in place, and the price of a graphic already cached.
#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLibraryInfo>
#include <QProcess>
#include <QTemporaryDir>

#include "skin/RdGraphic.h"
#include "skin/Resource.h"
#include "skin/StyleClasses.h"
#include "support/Paths.h"

namespace {

using namespace qpt;

void Write(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(bytes);
}

QByteArray Png(int size) {
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(qRgba(40, 44, 52, 200));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

// Packs a folder into <name>.rcc with the resource compiler.
void Pack(const QString& folder, const QString& name) {
    QString qrc = "<RCC><qresource prefix=\"/\">\n";
    QDir source(folder + name);
    for (const QString& file : source.entryList(QDir::Files))
        qrc += "<file>" + file + "</file>\n";
    for (const QString& file : QDir(folder + name + "/images").entryList(QDir::Files))
        qrc += "<file>images/" + file + "</file>\n";
    Write(folder + name + "/package.qrc", (qrc + "</qresource></RCC>\n").toUtf8());
    QProcess::execute(QLibraryInfo::path(QLibraryInfo::LibraryExecutablesPath) + "/rcc",
                      {"--binary", "-o", folder + name + ".rcc", folder + name + "/package.qrc"});
}

// A skin of the shipped packages' size: style classes with parents, image
// descriptions, named colours with links, pictures at 1x and 2x.
void MakeSkin(const QString& folder, const QString& name, int scale) {
    QByteArray main, colours = "[validate]\ntype=RGB\n[text_color]\n";
    for (int i = 0; i < 120; ++i) {
        main += "[img_" + QByteArray::number(i) + "]\nclass=image\nimgname=images/p" +
                QByteArray::number(i) + ".png\nimgopt=4,4,4,4,1\n";
        colours += "cl_" + QByteArray::number(i) +
                   (i % 4 ? "=1E1F2" + QByteArray::number(i % 10) + "\n"
                          : "=[text_color.cl_" + QByteArray::number(i + 1) + "]\n");
        Write(folder + name + "/images/p" + QByteArray::number(i) + ".png", Png(18 * scale));
    }
    Write(folder + name + "/main.ini", main);
    Write(folder + name + "/color_setting.ini", colours);
    Pack(folder, name);
}

void MakePublic(const QString& folder) {
    QByteArray main;
    for (int i = 0; i < 40; ++i)
        main += "[ctl_" + QByteArray::number(i) +
                "]\nclass=control\nparent=ctl_0\nwidth=" + QByteArray::number(i) +
                "\nheight=20\nfont=Sans\ncolor=[text_color.cl_1]\n";
    Write(folder + "public/main.ini", main);
    Write(folder + "public/scrollbar.ini", "[scrollbar]\nclass=scrollbar\nwidth=12\n");
    Pack(folder, "public");
}

// The packages in QPT_SKIN_DIR or built beside the program when there are
// any, else made-up ones.
const QString& SkinFolder() {
    static QTemporaryDir scratch;
    static const QString folder = [] {
        QString built = qEnvironmentVariable("QPT_SKIN_DIR", ProgramFolder() + "../program/skin");
        if (!built.endsWith('/')) built += '/';
        if (QFileInfo::exists(built + "classic2.rcc")) return built;
        const QString made = scratch.path() + '/';
        MakePublic(made);
        MakeSkin(made, "classic", 1);
        MakeSkin(made, "classic2", 2);
        return made;
    }();
    return folder;
}

void LoadClassic() {
    const QString folder = SkinFolder();
    TResource::UnloadCache(true);
    TResource::LoadRccFile(folder + "public.rcc", false);
    TResource::LoadRccFile(folder + "classic.rcc", false);
}

// Every "[section]" of class image.
QStringList DescriptionNames() {
    QStringList names;
    if (const TNameValueList* images = TResource::StyleClasses().Group("image"))
        for (int i = 0; i < images->Count(); ++i)
            names.append('[' + images->Get(i) + ']');
    return names;
}

void BM_StartUpLoadsPackagesAndBuildsTables(benchmark::State& state) {
    const QString folder = SkinFolder();
    for (auto _ : state) {
        TResource::UnloadCache(true);
        TResource::LoadRccFile(folder + "public.rcc", false);
        TResource::LoadRccFile(folder + "classic.rcc", false);
    }
    state.counters["classes"] = TResource::StyleClasses().Count();
    state.counters["descriptions"] = TResource::RdgCount();
}
BENCHMARK(BM_StartUpLoadsPackagesAndBuildsTables)->Unit(benchmark::kMillisecond);

// Every description and its picture cached, then the skin swapped back and forth.
void BM_SkinSwapRefillsCachedGraphics(benchmark::State& state) {
    const QString folder = SkinFolder();
    LoadClassic();
    for (const QString& name : DescriptionNames())
        TResource::GetGraphic(name);
    bool big = false;
    for (auto _ : state) {
        big = !big;
        TResource::LoadRccFile(folder + (big ? "classic2.rcc" : "classic.rcc"), false);
    }
    state.counters["graphics"] = TResource::GraphicCount();
}
BENCHMARK(BM_SkinSwapRefillsCachedGraphics)->Unit(benchmark::kMillisecond);

void BM_CachedGetGraphic(benchmark::State& state) {
    LoadClassic();
    const QStringList names = DescriptionNames();
    const QString name = names.value(names.size() / 2);
    TResource::GetGraphic(name);
    for (auto _ : state)
        benchmark::DoNotOptimize(TResource::GetGraphic(name));
}
BENCHMARK(BM_CachedGetGraphic);

}  // namespace
