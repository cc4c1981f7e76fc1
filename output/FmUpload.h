#pragma once

#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <memory>

namespace qpt {

class TRdImageButton;
class TRdLabel;
class TRdProgressBar;
class TRdStretchImage;
class TUploadImage;

// The small window in the lower right corner of the work area while a share
// uploads the picture: a title, a bar that only moves forward, and a button
// that gives up at once. When the upload ends it hides, opens the share page
// for its kind and tells its finish receiver; it never shows an error.
class TFmUpload : public QWidget {
    Q_OBJECT
public:
    static constexpr int kWidth = 324;
    static constexpr int kHeight = 74;

    TFmUpload();
    ~TFmUpload() override;

    // Places the window (after scaling) and marks it active.
    void FormCreate();
    // Starts the bar at 2 and the upload with it.
    void FormShow();
    void OnUploadProgress(TUploadImage& sender);
    // The bar goes to `percent` when that is further on; beyond 100 it is full.
    void ShowProgress(int percent);
    // Opens the page for the kind with the link, unless the user gave up.
    void OnUploadDone(TUploadImage& sender);
    void Btn_CloseClick();
    // Tells the finish receiver, with 1 after a share that tells the host.
    void FormClose();

    TRdStretchImage* RdStretchImage1 = nullptr;
    TRdProgressBar* ProUpload = nullptr;
    TRdImageButton* Btn_Close = nullptr;
    TRdLabel* Lbl_Title = nullptr;

    std::uint8_t FinishFlag = 0;
    std::shared_ptr<TUploadImage> UploadThread;
    QString FilePath;
    int ShareKind = 0;
    int FinishMessage = 0;
    QPointer<QObject> FinishWindow;
    // 1 from the start, 0 once the user pressed the close button.
    std::uint8_t Active = 0;

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeControls();
    bool shown_ = false;
    bool closed_ = false;
};

// Puts up the upload window for the file and starts the share. A missing
// file tells the finish receiver at once, with 0, and shows nothing.
void StartUpload(const QString& filePath, int kind, const QString& title, QObject* finishWindow,
                 int finishMessage, const QString& closeHint);

// Where the window stands: the lower right corner of the work area.
QPoint UploadWindowPlace(const QRect& workArea, QSize windowSize);

}  // namespace qpt
