#pragma once

#include "skin/BaseHash.h"
#include "skin/StringListEx.h"

namespace qpt {

// The name=value lines of one skin section. A name that is not here is looked
// up in Parent, so a section states only what differs from the one it
// inherits. Names are found through a hash built on first use and dropped
// whenever the lines change.
class TRdValueStrings : public TStringListEx {
public:
    TRdValueStrings* Parent() const { return parent_; }
    // Refused (false) when the chain would come back to this list: a cycle
    // would make every lookup endless.
    bool SetParent(TRdValueStrings* parent);

    int IndexOf(const QString& line) const override { return IndexOfName(NameOf(line)); }
    // Own lines only.
    int IndexOfName(const QString& name) const override;
    // Own lines first, then up the Parent chain.
    QString Values(const QString& name) const override;
    bool FindValue(const QString& name, QString* value) const;

    // Copies the lines of another list; child objects cannot be shared, so a
    // source that carries any is a programming error (std::logic_error).
    void Assign(const TStringListEx& source);
    // Hands the flattened view (own lines over inherited ones) to the target.
    void AssignTo(TStringListEx& target) const;

protected:
    void Changed() override { hashValid_ = false; }

private:
    QString HashKey(const QString& name) const;

    TRdValueStrings* parent_ = nullptr;
    mutable TStringHash hash_{256};
    mutable bool hashValid_ = false;
};

}  // namespace qpt
