// Renders the skin's vector pictures into PNG files at one scale.
//
//   SvgRaster <contents.txt> <svg folder> <output folder> <scale>
//
// Every "picture" line of the contents list names a picture, its size at
// scale 1, its SVG source and optional colour swaps ("#C5CAD3>#5AA9FF"), so
// that the hover and pressed looks of an icon share one drawing. The size is
// checked against the source's viewBox: a picture of the wrong size would
// shift every control that is laid out around it, so that is a build error.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>
#include <cstdio>
#include <optional>

namespace qpt {
namespace {

struct PictureJob {
    QString name;
    QSize size;
    QString source;
    QStringList swaps;
    int line = 0;
};

void complain(const QString& text) {
    std::fprintf(stderr, "SvgRaster: %s\n", qPrintable(text));
}

std::optional<QSize> parseSize(const QString& text) {
    const QStringList parts = text.split('x');
    bool okW = false;
    bool okH = false;
    if (parts.size() != 2) return std::nullopt;
    const QSize size(parts[0].toInt(&okW), parts[1].toInt(&okH));
    if (!okW || !okH || size.isEmpty()) return std::nullopt;
    return size;
}

// Reads the "picture" lines; every other kind of line belongs to other readers.
std::optional<QList<PictureJob>> readJobs(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        complain("cannot read " + path);
        return std::nullopt;
    }
    QList<PictureJob> jobs;
    QTextStream in(&file);
    for (int number = 1; !in.atEnd(); ++number) {
        const QStringList words = in.readLine().simplified().split(' ', Qt::SkipEmptyParts);
        if (words.isEmpty() || words[0] != "picture") continue;
        const auto size = words.size() >= 4 ? parseSize(words[2]) : std::nullopt;
        if (!size) {
            complain(QString("%1:%2: expected 'picture <name> <W>x<H> <source.svg> [swaps]'")
                         .arg(path)
                         .arg(number));
            return std::nullopt;
        }
        jobs.append({words[1], *size, words[3], words.mid(4), number});
    }
    return jobs;
}

std::optional<QByteArray> sourceWithSwaps(const QString& path, const QStringList& swaps) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        complain("cannot read " + path);
        return std::nullopt;
    }
    QByteArray svg = file.readAll();
    for (const QString& swap : swaps) {
        const QStringList pair = swap.split('>');
        // A swap that matches nothing would silently give two identical states.
        if (pair.size() != 2 || !svg.contains(pair[0].toUtf8())) {
            complain(QString("%1: colour swap '%2' matches nothing").arg(path, swap));
            return std::nullopt;
        }
        svg.replace(pair[0].toUtf8(), pair[1].toUtf8());
    }
    return svg;
}

bool render(const PictureJob& job, const QDir& sources, const QDir& output, int scale) {
    const auto svg = sourceWithSwaps(sources.filePath(job.source), job.swaps);
    if (!svg) return false;
    QSvgRenderer renderer(*svg);
    if (!renderer.isValid()) {
        complain(job.source + ": not a valid SVG");
        return false;
    }
    const QSize viewBox = renderer.viewBoxF().size().toSize();
    if (viewBox != job.size) {
        complain(QString("%1: viewBox is %2x%3, the picture %4 must be %5x%6")
                     .arg(job.source)
                     .arg(viewBox.width())
                     .arg(viewBox.height())
                     .arg(job.name)
                     .arg(job.size.width())
                     .arg(job.size.height()));
        return false;
    }
    QImage image(job.size * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(QPointF(0, 0), image.size()));
    painter.end();
    const QString target = output.filePath(job.name + ".png");
    if (!image.save(target, "PNG")) {
        complain("cannot write " + target);
        return false;
    }
    return true;
}

int run(const QStringList& args) {
    bool okScale = false;
    const int scale = args.size() == 5 ? args[4].toInt(&okScale) : 0;
    if (!okScale || scale < 1) {
        complain("usage: SvgRaster <contents.txt> <svg folder> <output folder> <scale>");
        return 2;
    }
    const auto jobs = readJobs(args[1]);
    if (!jobs) return 1;
    const QDir sources(args[2]);
    QDir output(args[3]);
    if (!output.mkpath(".")) {
        complain("cannot create " + args[3]);
        return 1;
    }
    int failures = 0;
    for (const PictureJob& job : *jobs)
        failures += render(job, sources, output, scale) ? 0 : 1;
    return failures == 0 ? 0 : 1;
}

}  // namespace
}  // namespace qpt

int main(int argc, char** argv) {
    // Text in the pictures needs the font database, which needs a GUI
    // application; the build machine may have no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    return qpt::run(QCoreApplication::arguments());
}
