// The cost of a skin change for the controls: every skin class applying its
// section (about ten lines through dotted paths) and the windows told, and
// reading one value in the text form.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <memory>
#include <vector>

#include "bench/BenchApplication.h"
#include "skin/RdPanel.h"
#include "skin/RdSkinStyle.h"
#include "skin/Resource.h"
#include "skin/SkinValue.h"

namespace {

using namespace qpt;

const QByteArray kMainIni =
    "[base]\nclass=TRdPanel\nFont.Name='Skin Sans'\nFont.Height=-12\nFont.Style=[fsBold]\n"
    "Color=public_element.cl_panel_bg\nColorTo=public_element.cl_panel_end\n"
    "[panel]\nclass=TRdPanel\nparent=base\nColorToVert=True\nHitTest=False\n"
    "Font.Color=text_color.cl_text_b\nHint='Skinned'\nTop_Invert=4\nLeft_Invert=4\n";

void BM_RefreshAll200Controls(benchmark::State& state) {
    EnsureBenchApplication<QApplication>();
    TResource::SetResourceHook([](QByteArray& bytes, const QString& name) {
        if (name != QLatin1String(":/public/main.ini")) return false;
        bytes = kMainIni;
        return true;
    });
    TResource::ReloadCache();
    QWidget form;
    form.resize(800, 600);
    std::vector<TRdPanel*> panels;
    for (int i = 0; i < 200; ++i) {
        panels.push_back(new TRdPanel(&form));
        panels.back()->AllSkin()->SetSkinClass(QStringLiteral("panel"));
    }
    for (auto _ : state)
        TRdSkinStyle::RefreshAll();
    TResource::SetResourceHook({});
}
BENCHMARK(BM_RefreshAll200Controls)->Unit(benchmark::kMillisecond);

void BM_ReadValueText(benchmark::State& state) {
    const QString text =
        QStringLiteral("('imgname=images/icon_text_normal.png' 'imgrect=0,0,18,18')");
    for (auto _ : state)
        benchmark::DoNotOptimize(TSkinValue::FromText(text));
}
BENCHMARK(BM_ReadValueText);

}  // namespace
