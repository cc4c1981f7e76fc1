#pragma once

#include "skin/DesignRectProperty.h"
#include "skin/RdPaintBox.h"
#include "skin/RdPictureProperty.h"

namespace qpt {

class TRdTimer;

// A skinned progress bar: ImgBackground over the whole control, ImgBar from
// the left as far as Position goes, and, while the work runs, the booster
// picture sliding along the bar on a timer of its own.
class TRdProgressBar : public TRdPaintBox {
    Q_OBJECT
    Q_PROPERTY(int Max READ Max WRITE SetMax)
    Q_PROPERTY(int Min READ Min WRITE SetMin)
    Q_PROPERTY(int Position READ Position WRITE SetPosition)
    Q_PROPERTY(qpt::TRdPictureProperty* ImgBackground READ ImgBackground)
    Q_PROPERTY(qpt::TDesignRectProperty* ImgBackgroundOption READ ImgBackgroundOption)
    Q_PROPERTY(qpt::TRdPictureProperty* ImgBar READ ImgBar)
    Q_PROPERTY(qpt::TDesignRectProperty* ImgBarOption READ ImgBarOption)
    Q_PROPERTY(qpt::TRdPictureProperty* ImgBooster READ ImgBooster)
    Q_PROPERTY(int ImgBoosterY READ ImgBoosterY WRITE SetImgBoosterY)
    Q_PROPERTY(int ImgInterval READ ImgInterval WRITE SetImgInterval)

public:
    // Pixels the booster moves per tick.
    static constexpr int kBoosterStep = 4;

    explicit TRdProgressBar(QWidget* parent = nullptr);

    int Max() const { return max_; }
    void SetMax(int value);
    int Min() const { return min_; }
    void SetMin(int value);
    int Position() const { return position_; }
    void SetPosition(int value);
    TRdPictureProperty* ImgBackground() const { return background_; }
    TDesignRectProperty* ImgBackgroundOption() const { return backgroundOption_; }
    TRdPictureProperty* ImgBar() const { return bar_; }
    TDesignRectProperty* ImgBarOption() const { return barOption_; }
    TRdPictureProperty* ImgBooster() const { return booster_; }
    int ImgBoosterY() const { return boosterY_; }
    void SetImgBoosterY(int value);
    int ImgInterval() const { return interval_; }
    void SetImgInterval(int value);

    // While loading, the booster's timer waits for EndLoad.
    void BeginLoad() { ++loading_; }
    void EndLoad();

    // Where the bar is drawn; empty when there is nothing to show.
    QRect BarRect() const;
    // Where the booster is drawn; empty when it is not shown.
    QRect BoosterRect() const;
    int BoosterOffset() const { return boosterOffset_; }
    // The booster's timer, there only while ImgBooster holds a picture.
    TRdTimer* BoosterTimer() const { return timer_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Changed();
    void BoosterChanged();
    void UpdateTimer();
    void StepBooster();
    void SetDefaultSlicing(TDesignRectProperty* option, const TRdPictureProperty* picture);

    TRdPictureProperty* background_;
    TDesignRectProperty* backgroundOption_;
    TRdPictureProperty* bar_;
    TDesignRectProperty* barOption_;
    TRdPictureProperty* booster_;
    TRdTimer* timer_ = nullptr;
    int min_ = 0;
    int max_ = 100;
    int position_ = 0;
    int boosterY_ = 0;
    int interval_ = 30;
    int boosterOffset_ = 0;
    int loading_ = 0;
};

}  // namespace qpt
