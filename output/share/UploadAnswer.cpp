#include "output/share/UploadAnswer.h"

#include <nlohmann/json.hpp>

namespace qpt {

namespace {

bool IsPlainWebAddress(const QString& link) {
    if (!link.startsWith(QLatin1String("https://"), Qt::CaseInsensitive) &&
        !link.startsWith(QLatin1String("http://"), Qt::CaseInsensitive))
        return false;
    for (QChar c : link)
        if (c.isSpace() || c.category() == QChar::Other_Control) return false;
    return true;
}

}  // namespace

QString ReadUploadLink(std::string_view answer) {
    // No exceptions: a broken answer is discarded rather than thrown.
    const nlohmann::json root = nlohmann::json::parse(answer, nullptr, false);
    if (!root.is_object()) return {};
    const auto data = root.find("data");
    if (data == root.end() || !data->is_object()) return {};
    const auto link = data->find("link");
    if (link == data->end() || !link->is_string()) return {};
    const QString text = QString::fromStdString(link->get_ref<const std::string&>());
    return IsPlainWebAddress(text) ? text : QString();
}

}  // namespace qpt
