#pragma once

#include <QString>
#include <string_view>

namespace qpt {

// The link in the image host's answer: member "link" of member "data" of a
// JSON object. Nothing else is looked at, not even a success flag: the
// answer either carries a link or it does not. An answer that is not JSON,
// a link that is not text, or text that is not a plain web address (http or
// https, no spaces or control characters) all give an empty link, since the
// link is handed to the browser as it stands.
QString ReadUploadLink(std::string_view answer);

}  // namespace qpt
