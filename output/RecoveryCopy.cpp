#include "output/RecoveryCopy.h"

#include <QDir>
#include <QFileInfo>

#include "imaging/view/IEImageView.h"
#include "output/FlattenPicture.h"
#include "output/PictureFile.h"
#include "support/LogManage.h"
#include "support/Paths.h"

namespace qpt {

namespace {

// Names that do not yet exist: "name.png", then "name_2.png" and so on.
QString FreeName(const QString& folder, const QString& stem) {
    QString path = folder + stem + ".png";
    for (int n = 2; QFileInfo::exists(path); ++n)
        path = folder + stem + '_' + QString::number(n) + ".png";
    return path;
}

QString StemOf(const QString& failedPath) {
    const QString stem = QFileInfo(failedPath).completeBaseName();
    return stem.isEmpty() ? QStringLiteral("ScreenShot") : stem;
}

}  // namespace

QString RecoveryFolder() {
    const QString settings = SettingsFolder();
    return settings.isEmpty() ? QString() : settings + "recovery/";
}

QString KeepInRecovery(TIEImageView& view, const QString& failedPath) {
    FlattenPicture(view);
    const QString folder = RecoveryFolder();
    const TIEBitmap* picture = view.IEBitmap();
    QString kept;
    if (!folder.isEmpty() && picture && QDir().mkpath(folder)) {
        kept = FreeName(folder, StemOf(failedPath));
        if (!WritePictureFile(*picture, kept, TImageFileFormat::Png, 0)) kept.clear();
    }
    if (kept.isEmpty())
        WriteLog(QStringLiteral("[Save]could not write \"%1\", nor keep the picture in \"%2\"")
                     .arg(failedPath, folder));
    else
        WriteLog(QStringLiteral("[Save]could not write \"%1\"; the picture is kept in \"%2\"")
                     .arg(failedPath, kept));
    return kept;
}

}  // namespace qpt
