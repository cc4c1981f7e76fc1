#pragma once

#include <QString>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace qpt {

// Rotate-left-by-2 and xor over the UTF-16 units: cheap, and spreads the short
// names of ini lines well enough over a few hundred buckets.
quint32 StringHashOf(const QString& key);

// A fixed array of buckets, each kept sorted by hash, so a lookup is a
// bisection in one short bucket followed by a scan of the equal hashes.
// Entries live inside the bucket vectors: no node per entry to allocate.
template <class Key, class Value, class Hasher>
class TBaseHash {
public:
    explicit TBaseHash(std::size_t buckets) : bucketCount_(std::max<std::size_t>(buckets, 1)) {}

    Value* Find(const Key& key) {
        if (buckets_.empty()) return nullptr;
        const quint32 hash = Hasher{}(key);
        Bucket& bucket = BucketOf(hash);
        for (auto it = FirstOf(bucket, hash); it != bucket.end() && it->hash == hash; ++it)
            if (it->key == key) return &it->value;
        return nullptr;
    }
    const Value* Find(const Key& key) const { return const_cast<TBaseHash*>(this)->Find(key); }

    // Adds an entry unless the key is present; false when it was.
    bool Add(const Key& key, Value value) {
        if (Find(key)) return false;
        Insert(key, std::move(value));
        return true;
    }

    // Adds the entry, replacing the value of a key that is present.
    void Put(const Key& key, Value value) {
        if (Value* old = Find(key))
            *old = std::move(value);
        else
            Insert(key, std::move(value));
    }

    bool Remove(const Key& key) {
        if (buckets_.empty()) return false;
        const quint32 hash = Hasher{}(key);
        Bucket& bucket = BucketOf(hash);
        for (auto it = FirstOf(bucket, hash); it != bucket.end() && it->hash == hash; ++it) {
            if (it->key == key) {
                bucket.erase(it);
                --count_;
                return true;
            }
        }
        return false;
    }

    void Clear() {
        for (Bucket& bucket : buckets_)
            bucket.clear();
        count_ = 0;
    }

    std::size_t Count() const { return count_; }

    template <class Visit>
    void ForEach(Visit&& visit) const {
        for (const Bucket& bucket : buckets_)
            for (const Entry& entry : bucket)
                visit(entry.key, entry.value);
    }

private:
    struct Entry {
        quint32 hash;
        Key key;
        Value value;
    };
    using Bucket = std::vector<Entry>;

    Bucket& BucketOf(quint32 hash) { return buckets_[hash % buckets_.size()]; }

    static typename Bucket::iterator FirstOf(Bucket& bucket, quint32 hash) {
        return std::lower_bound(bucket.begin(), bucket.end(), hash,
                                [](const Entry& e, quint32 h) { return e.hash < h; });
    }

    void Insert(const Key& key, Value value) {
        // Buckets appear with the first entry: most section lists are never searched.
        if (buckets_.empty()) buckets_.resize(bucketCount_);
        const quint32 hash = Hasher{}(key);
        Bucket& bucket = BucketOf(hash);
        auto at = std::upper_bound(bucket.begin(), bucket.end(), hash,
                                   [](quint32 h, const Entry& e) { return h < e.hash; });
        bucket.insert(at, Entry{hash, key, std::move(value)});
        ++count_;
    }

    std::size_t bucketCount_;
    std::vector<Bucket> buckets_;
    std::size_t count_ = 0;
};

struct StringHasher {
    quint32 operator()(const QString& key) const { return StringHashOf(key); }
};

// Numeric keys (colour ids) are their own hash.
struct IdentityHasher {
    quint32 operator()(quint32 key) const { return key; }
};

// Name to line index; the caller folds case before asking.
class TStringHash : public TBaseHash<QString, int, StringHasher> {
public:
    explicit TStringHash(std::size_t buckets = 256) : TBaseHash(buckets) {}
};

template <class Value>
class TPointerHash : public TBaseHash<quint32, Value, IdentityHasher> {
public:
    explicit TPointerHash(std::size_t buckets = 512)
        : TBaseHash<quint32, Value, IdentityHasher>(buckets) {}
};

}  // namespace qpt
