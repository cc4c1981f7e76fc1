#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QResource>
#include <QTemporaryDir>
#include <functional>

#include "skin/RccCheck.h"
#include "skin/RccPackages.h"
#include "tests/common/ScratchHome.h"
#include "tests/skin/SkinPackageBuilder.h"

namespace qpt {
namespace {

using testing::BuildPackage;
using testing::PngBytes;
using testing::ReadFile;
using testing::WriteFile;

quint32 Get32(const QByteArray& b, qint64 at) {
    return quint32(uchar(b[at])) << 24 | quint32(uchar(b[at + 1])) << 16 |
           quint32(uchar(b[at + 2])) << 8 | uchar(b[at + 3]);
}

void Put32(QByteArray& b, qint64 at, quint32 v) {
    for (int i = 0; i < 4; ++i)
        b[at + i] = char(v >> (24 - 8 * i));
}

// Where the parts of a package lie, read as the resource system reads them.
struct Layout {
    qint64 tree, data, names, nodeSize;
    explicit Layout(const QByteArray& b)
        : tree(Get32(b, 8)),
          data(Get32(b, 12)),
          names(Get32(b, 16)),
          nodeSize(Get32(b, 4) >= 2 ? 22 : 14) {}
    qint64 Node(int n) const { return tree + n * nodeSize; }
    // The first node whose flags (directory 2, zlib 1) are `flags`.
    int FirstWith(const QByteArray& b, int flags) const {
        for (int n = 0; Node(n + 1) <= b.size(); ++n)
            if (((uchar(b[Node(n) + 4]) << 8) | uchar(b[Node(n) + 5])) == flags) return n;
        return -1;
    }
};

// Every file in the package, read through the resource system.
qint64 ReadEverything(const QByteArray& package) {
    const auto* data = reinterpret_cast<const uchar*>(package.constData());
    if (!QResource::registerResource(data, "/probe")) return -1;
    qint64 total = 0;
    QDirIterator it(":/probe", QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (file.open(QIODevice::ReadOnly)) total += file.readAll().size();
    }
    QResource::unregisterResource(data, "/probe");
    return total;
}

class RccCheck : public ::testing::Test {
protected:
    QByteArray Build(const QString& name, const QStringList& options) {
        const QString path = BuildPackage(dir_.path() + '/', name, files_, options);
        return path.isEmpty() ? QByteArray() : ReadFile(path);
    }
    QByteArray Compressed() {
        return Build("zlib.rcc", {"--compress-algo", "zlib", "--threshold", "0"});
    }

    QTemporaryDir dir_;
    const std::map<QString, QByteArray> files_ = {
        {"main.ini", QByteArray("[button]\nclass=button\n").repeated(40)},
        {"images/dot.png", PngBytes(3, 2, qRgb(10, 20, 30))},
    };
};

TEST_F(RccCheck, ShippedAndFreshlyPackedPackagesAreSound) {
    for (const char* shipped : {"public.rcc", "classic.rcc", "classic2.rcc"})
        EXPECT_TRUE(IsSoundRccPackage(ReadFile(QPT_PROGRAM_DIR "/skin/" + QString(shipped))))
            << shipped;
    const QStringList variants[] = {{},
                                    {"--compress-algo", "zlib", "--threshold", "0"},
                                    {"--compress-algo", "zstd", "--threshold", "0"},
                                    {"--format-version", "1"},
                                    {"--format-version", "2"}};
    for (const QStringList& options : variants) {
        SCOPED_TRACE(options.join(' ').toStdString());
        const QString path = BuildPackage(dir_.path() + '/', "fresh.rcc", files_, options);
        ASSERT_TRUE(IsSoundRccPackage(ReadFile(path)));
        ASSERT_TRUE(RccRegister(path));
        EXPECT_EQ(RccData(":/fresh/main.ini"), files_.at("main.ini"));
        EXPECT_EQ(RccData(":/fresh/images/dot.png"), files_.at("images/dot.png"));
        RccUnregister(path);
    }
}

// Each damage would make the resource system read outside the file, loop,
// or allocate what the entry never holds.
TEST_F(RccCheck, DamagedPackagesAreRefused) {
    const QByteArray good = Compressed();
    ASSERT_TRUE(IsSoundRccPackage(good));
    const Layout at(good);
    const int file = at.FirstWith(good, 0), packed = at.FirstWith(good, 1);
    const int folder = at.FirstWith(good, 2);
    ASSERT_TRUE(file > 0 && packed > 0 && folder == 0);
    const qint64 packedData = at.data + Get32(good, at.Node(packed) + 10);
    const std::pair<const char*, std::function<void(QByteArray&)>> damages[] = {
        {"magic", [&](QByteArray& b) { b[0] = 'Q'; }},
        {"version", [&](QByteArray& b) { Put32(b, 4, 4); }},
        {"unknown flag", [&](QByteArray& b) { Put32(b, 20, 0x10); }},
        {"tree offset", [&](QByteArray& b) { Put32(b, 8, quint32(b.size())); }},
        {"root is a file", [&](QByteArray& b) { b[at.Node(0) + 5] = 0; }},
        {"child loop", [&](QByteArray& b) { Put32(b, at.Node(0) + 10, 0); }},
        {"child count", [&](QByteArray& b) { Put32(b, at.Node(0) + 6, 100000); }},
        {"name offset", [&](QByteArray& b) { Put32(b, at.Node(file), 0x7FFFFFF0); }},
        {"name length", [&](QByteArray& b) { b[at.names + Get32(b, at.Node(file))] = char(0xFF); }},
        {"data offset", [&](QByteArray& b) { Put32(b, at.Node(file) + 10, 0x7FFFFFF0); }},
        {"data length", [&](QByteArray& b) { Put32(b, packedData, 0x7FFFFFF0); }},
        {"announced too much", [&](QByteArray& b) { Put32(b, packedData + 4, 0x7FFFFFFF); }},
        {"announced too little", [&](QByteArray& b) { Put32(b, packedData + 4, 1); }},
    };
    for (const auto& [name, damage] : damages) {
        QByteArray bad = good;
        damage(bad);
        EXPECT_FALSE(IsSoundRccPackage(bad)) << name;
    }
    for (qsizetype size = 0; size < good.size(); ++size)
        ASSERT_FALSE(IsSoundRccPackage(good.left(size))) << "cut at " << size;
}

// What a damaged disk or download does to a package: any one byte changed.
// The check refuses it, or the resource system reads it whole without harm
// (the sanitizer build sees every read outside the bytes).
TEST_F(RccCheck, EveryChangedByteIsRefusedOrReadsBackWithoutHarm) {
    const QByteArray good = ReadFile(QPT_PROGRAM_DIR "/skin/public.rcc");
    ASSERT_FALSE(good.isEmpty());
    int accepted = 0;
    for (qsizetype i = 0; i < good.size(); ++i) {
        QByteArray mutant = good;
        mutant[i] = char(mutant[i] ^ 0x5A);
        if (!IsSoundRccPackage(mutant)) continue;
        ++accepted;
        EXPECT_GE(ReadEverything(mutant), 0) << "byte " << i;
    }
    EXPECT_LT(accepted, good.size());
}

TEST_F(RccCheck, AnUnsoundPackageFileCountsAsMissing) {
    QByteArray bad = Compressed();
    Put32(bad, Layout(bad).Node(0) + 6, 100000);
    const QString path = dir_.path() + "/broken.rcc";
    WriteFile(path, bad);
    EXPECT_FALSE(RccRegister(path));
    EXPECT_FALSE(RccIsRegistered(path));
    EXPECT_TRUE(RccData(":/broken/main.ini").isEmpty());

    const QString pipe = dir_.path() + "/pipe.rcc";
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(RccRegister(pipe));  // would wait for a writer if opened plainly
}

}  // namespace
}  // namespace qpt
