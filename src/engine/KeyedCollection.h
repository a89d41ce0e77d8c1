// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/CodePage.h"
#include "platform/Failure.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace calyvox {

/// An ordered collection that owns its items. They are addressed by their 1-based index or by a key, compared
/// without letter case; an item may have none. Failures: 457 for a key given twice, 9 for an index and 5 for
/// a key that is not there.
template <typename T>
class KeyedCollection {
public:
    T& Add(std::unique_ptr<T> item, const std::string& key) {
        if (!key.empty() && Find(key) != entries_.end())
            throw Failure(Failure::kKeyExists, "KeyedCollection");
        entries_.push_back({key, std::move(item)});
        return *entries_.back().Item;
    }

    T& Item(std::int64_t index) { return *At(index)->Item; }
    T& Item(const std::string& key) { return *At(key)->Item; }
    void Remove(std::int64_t index) { entries_.erase(At(index)); }
    void Remove(const std::string& key) { entries_.erase(At(key)); }
    std::int64_t Count() const { return static_cast<std::int64_t>(entries_.size()); }

    /// Takes out all items of which the predicate is true.
    template <typename Predicate>
    void RemoveIf(Predicate predicate) {
        std::erase_if(entries_, [&](const Entry& entry) { return predicate(*entry.Item); });
    }

private:
    struct Entry {
        std::string Key;
        std::unique_ptr<T> Item;
    };
    using Entries = std::vector<Entry>;

    typename Entries::iterator Find(const std::string& key) {
        auto at = entries_.begin();
        while (at != entries_.end() && (at->Key.empty() || !CodePage::EqualNoCase(at->Key, key)))
            ++at;
        return at;
    }
    typename Entries::iterator At(const std::string& key) {
        const auto at = Find(key);
        if (at == entries_.end()) throw Failure(Failure::kInvalidCall, "KeyedCollection");
        return at;
    }
    typename Entries::iterator At(std::int64_t index) {
        if (index < 1 || index > Count()) throw Failure(Failure::kBadIndex, "KeyedCollection");
        return entries_.begin() + (index - 1);
    }

    Entries entries_;

public:
    /// Walks the items in order.
    class Enumerator {
    public:
        explicit Enumerator(typename Entries::iterator at) : at_(at) {}
        T& operator*() const { return *at_->Item; }
        Enumerator& operator++() {
            ++at_;
            return *this;
        }
        bool operator==(const Enumerator& other) const { return at_ == other.at_; }

    private:
        typename Entries::iterator at_;
    };
    Enumerator begin() { return Enumerator(entries_.begin()); }
    Enumerator end() { return Enumerator(entries_.end()); }
};

} // namespace calyvox
