#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QString>

#include "skin/RdSkinClass.h"

namespace qpt {

// The font of a skinned control, with the framework's own measures: Height
// below zero is the character height in pixels (without internal leading),
// above zero the cell height (ascent plus descent); Size is in points at 96
// pixels per inch, so that one picture pixel stays one screen pixel. Color is
// a colour value (fixed, system or named skin colour) and Alpha its opacity.
// A font has its own skin class "font"; ParentFont makes it follow the font
// of the owner's parent, and any change made to it directly ends that.
class TRdFont : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool ParentFont READ ParentFont WRITE SetParentFont)
    Q_PROPERTY(int Charset READ Charset WRITE SetCharset)
    Q_PROPERTY(quint32 Color READ Color WRITE SetColor)
    Q_PROPERTY(int Height READ Height WRITE SetHeight)
    Q_PROPERTY(QString Name READ Name WRITE SetName)
    Q_PROPERTY(TFontStyles Style READ Style WRITE SetStyle)
    Q_PROPERTY(int Size READ Size WRITE SetSize STORED false)
    Q_PROPERTY(bool Antialiased READ Antialiased WRITE SetAntialiased)
    Q_PROPERTY(int Alpha READ Alpha WRITE SetAlpha)
    Q_PROPERTY(int FontHeight READ FontHeight)
    Q_PROPERTY(int FontBaseLine READ FontBaseLine)
    Q_PROPERTY(int FontTopLine READ FontTopLine)
    Q_PROPERTY(qpt::TRdSkinClass* AllSkin READ AllSkin)

public:
    enum TFontStyle { fsBold = 1, fsItalic = 2, fsUnderline = 4, fsStrikeOut = 8 };
    Q_DECLARE_FLAGS(TFontStyles, TFontStyle)
    Q_FLAG(TFontStyles)

    static constexpr int kPixelsPerInch = 96;
    static constexpr int kDefaultCharset = 1;

    explicit TRdFont(QObject* parent = nullptr);

    bool ParentFont() const { return parentFont_; }
    void SetParentFont(bool value);
    int Charset() const { return charset_; }
    void SetCharset(int value);
    quint32 Color() const { return color_; }
    void SetColor(quint32 value);
    int Height() const { return height_; }
    void SetHeight(int value);
    QString Name() const { return name_; }
    void SetName(const QString& value);
    TFontStyles Style() const { return style_; }
    void SetStyle(TFontStyles value);
    int Size() const;
    void SetSize(int points);
    bool Antialiased() const { return antialiased_; }
    void SetAntialiased(bool value);
    int Alpha() const { return alpha_; }
    void SetAlpha(int value);  // clamped to 0..255

    // Measured with the platform's text metrics of this font.
    int FontHeight() const;
    int FontBaseLine() const;
    int FontTopLine() const;

    TRdSkinClass* AllSkin() const { return allSkin_; }

    // Changes inside an update are told once, at its end.
    void BeginUpdate();
    void EndUpdate();
    // Takes over every look of the other font; ParentFont stays as it is.
    void Assign(const TRdFont& source);

    QFont ToQFont() const;
    // The colour to paint with, from the current skin.
    QColor ToQColor() const;

signals:
    void Changed();

private:
    // A direct change ends following the parent, unless the parent's font is
    // what is being copied in.
    template <typename T>
    void Change(T& field, const T& value);
    void Notify();

    QString name_ = QStringLiteral("Tahoma");
    int height_ = -11;
    TFontStyles style_;
    quint32 color_;
    int charset_ = kDefaultCharset;
    bool antialiased_ = true;
    int alpha_ = 255;
    bool parentFont_ = false;
    bool assigning_ = false;
    int updates_ = 0;
    bool pending_ = false;
    TRdSkinClass* allSkin_;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(TRdFont::TFontStyles)

}  // namespace qpt
