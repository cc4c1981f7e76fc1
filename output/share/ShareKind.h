#pragma once

#include <QString>

namespace qpt {

// The ways a picture is shared; each posts it to the image host first and
// then opens a page that carries the link.
enum TShareKind : int {
    skFacebook = 0,
    skTwitter = 1,
    skPinterest = 2,
    skImageHost = 3,
    skImageSearch = 4,
};

// The usage code reported for a kind; empty for the image search, which
// reports nothing, and for an unknown kind.
QString ShareUsageCode(int kind);

// The message key of the progress window's title.
QString ShareTitleKey(int kind);

// The page to open once the upload is done. The link goes in unencoded, as
// the image host returned it, so an empty link still opens the target page;
// the image host's own kind opens the link itself, and nothing when empty.
QString BuildShareAddress(int kind, const QString& link);

}  // namespace qpt
