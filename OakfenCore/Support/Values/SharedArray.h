#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace oakfen {

/// A sequence whose copies share their storage: the array type of the document.
///
/// The elements lie in contiguous chunks of at most `chunkCapacity`, each held by a shared pointer.
/// Copying shares all chunks, editing an element copies one chunk if somebody else holds it, and
/// equality skips chunks that are the same object. So a snapshot of the document, and comparing it
/// with an edited copy, cost next to nothing.
template <typename T>
class SharedArray {
public:
    using value_type = T;
    using Chunk = std::vector<T>;

    static constexpr std::size_t chunkCapacity = 256;

    /// Walks the elements in order; stays valid until the array is edited.
    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = const T*;
        using reference = const T&;

        const_iterator() = default;

        reference operator*() const { return *element_; }
        pointer operator->() const { return element_; }
        const_iterator& operator++() {
            if (++element_ == chunkEnd_) {
                ++chunk_;
                enterChunk();
            }
            return *this;
        }
        const_iterator operator++(int) {
            const_iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const const_iterator& a, const const_iterator& b) {
            return a.element_ == b.element_;
        }

    private:
        friend class SharedArray;
        using ChunkPointer = const std::shared_ptr<Chunk>*;

        const_iterator(ChunkPointer chunk, ChunkPointer last) : chunk_(chunk), last_(last) {
            enterChunk();
        }
        void enterChunk() {
            if (chunk_ == last_) {
                element_ = nullptr;
                return;
            }
            element_ = (*chunk_)->data();
            chunkEnd_ = element_ + (*chunk_)->size();
        }

        ChunkPointer chunk_ = nullptr;
        ChunkPointer last_ = nullptr;
        const T* element_ = nullptr;
        const T* chunkEnd_ = nullptr;
    };
    using iterator = const_iterator;

    SharedArray() = default;
    SharedArray(std::initializer_list<T> elements) : SharedArray(Chunk(elements)) {}
    explicit SharedArray(Chunk elements) {
        for (T& element : elements) {
            push_back(std::move(element));
        }
    }

    [[nodiscard]] std::size_t size() const noexcept { return ends_.empty() ? 0 : ends_.back(); }
    [[nodiscard]] bool empty() const noexcept { return ends_.empty(); }
    [[nodiscard]] const_iterator begin() const {
        return const_iterator(chunks_.data(), chunks_.data() + chunks_.size());
    }
    [[nodiscard]] const_iterator end() const {
        const auto last = chunks_.data() + chunks_.size();
        return const_iterator(last, last);
    }

    /// The element at `index`, which must be less than `size()`; logarithmic in the chunks.
    [[nodiscard]] const T& operator[](std::size_t index) const {
        const std::size_t chunk = chunkOf(index);
        return (*chunks_[chunk])[index - startOf(chunk)];
    }
    [[nodiscard]] const T& front() const { return chunks_.front()->front(); }
    [[nodiscard]] const T& back() const { return chunks_.back()->back(); }

    /// The element at `index` for changing it in place; copies its chunk if that is shared.
    [[nodiscard]] T& edit(std::size_t index) {
        const std::size_t chunk = chunkOf(index);
        return own(chunk)[index - startOf(chunk)];
    }

    /// Appends; copies at most the last chunk.
    void push_back(T element) {
        if (chunks_.empty() || chunks_.back()->size() >= chunkCapacity) {
            auto chunk = std::make_shared<Chunk>();
            chunk->push_back(std::move(element));
            chunks_.push_back(std::move(chunk));
            ends_.push_back(size() + 1);
            return;
        }
        own(chunks_.size() - 1).push_back(std::move(element));
        ++ends_.back();
    }

    /// Removes the element at `index`; copies at most its chunk.
    void erase(std::size_t index) {
        const std::size_t chunk = chunkOf(index);
        Chunk& elements = own(chunk);
        elements.erase(elements.begin() + static_cast<std::ptrdiff_t>(index - startOf(chunk)));
        if (elements.empty()) {
            chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(chunk));
        }
        recount();
    }

    /// Removes the elements that the predicate picks; copies only the chunks that hold one. Returns
    /// how many went. The predicate is called once for each element, in order.
    template <typename Predicate>
    std::size_t eraseIf(Predicate&& picks) {
        const std::size_t before = size();
        std::vector<std::shared_ptr<Chunk>> kept;
        kept.reserve(chunks_.size());
        for (const auto& chunk : chunks_) {
            keepUnpicked(chunk, picks, kept);
        }
        chunks_ = std::move(kept);
        recount();
        return before - size();
    }

    /// Calls `change` with a changeable copy of each element that `picks` wants and stores the copy
    /// if it differs; chunks without a change stay shared.
    template <typename Predicate, typename Change>
    void editWhere(Predicate&& picks, Change&& change) {
        for (std::size_t chunk = 0; chunk < chunks_.size(); ++chunk) {
            for (std::size_t index = 0; index < chunks_[chunk]->size(); ++index) {
                if (!picks(std::as_const((*chunks_[chunk])[index]))) {
                    continue;
                }
                T changed = (*chunks_[chunk])[index];
                change(changed);
                if (!(changed == (*chunks_[chunk])[index])) {
                    own(chunk)[index] = std::move(changed);
                }
            }
        }
    }

    /// The index of the first element that the predicate picks.
    template <typename Predicate>
    [[nodiscard]] std::optional<std::size_t> firstIndex(Predicate&& picks) const {
        std::size_t index = 0;
        for (const T& element : *this) {
            if (picks(element)) {
                return index;
            }
            ++index;
        }
        return std::nullopt;
    }

    /// The first element that the predicate picks, or null.
    template <typename Predicate>
    [[nodiscard]] const T* first(Predicate&& picks) const {
        for (const T& element : *this) {
            if (picks(element)) {
                return &element;
            }
        }
        return nullptr;
    }

    void clear() noexcept {
        chunks_.clear();
        ends_.clear();
    }

    /// The storage, for readers that prove parts of two arrays the same by address.
    [[nodiscard]] const std::vector<std::shared_ptr<Chunk>>& chunks() const noexcept {
        return chunks_;
    }

    /// The same elements in the same order; chunks that are one object are not looked into.
    friend bool operator==(const SharedArray& a, const SharedArray& b) {
        if (a.size() != b.size()) {
            return false;
        }
        if (a.ends_ == b.ends_) {
            return std::equal(a.chunks_.begin(), a.chunks_.end(), b.chunks_.begin(),
                              [](const auto& x, const auto& y) { return x == y || *x == *y; });
        }
        return std::equal(a.begin(), a.end(), b.begin());
    }

private:
    [[nodiscard]] std::size_t chunkOf(std::size_t index) const {
        return static_cast<std::size_t>(std::upper_bound(ends_.begin(), ends_.end(), index) -
                                        ends_.begin());
    }
    [[nodiscard]] std::size_t startOf(std::size_t chunk) const {
        return chunk == 0 ? 0 : ends_[chunk - 1];
    }

    Chunk& own(std::size_t chunk) {
        if (chunks_[chunk].use_count() > 1) {
            auto copy = std::make_shared<Chunk>();
            copy->reserve(std::min(chunkCapacity, chunks_[chunk]->size() + 1));
            copy->insert(copy->end(), chunks_[chunk]->begin(), chunks_[chunk]->end());
            chunks_[chunk] = std::move(copy);
        } else {
            // A worker may just have let go of its copy: what it read must come before our write.
            std::atomic_thread_fence(std::memory_order_acquire);
        }
        return *chunks_[chunk];
    }

    template <typename Predicate>
    static void keepUnpicked(const std::shared_ptr<Chunk>& chunk, Predicate& picks,
                             std::vector<std::shared_ptr<Chunk>>& kept) {
        std::vector<bool> picked(chunk->size());
        std::size_t count = 0;
        for (std::size_t index = 0; index < chunk->size(); ++index) {
            picked[index] = picks(std::as_const((*chunk)[index]));
            count += picked[index] ? 1U : 0U;
        }
        if (count == 0) {
            kept.push_back(chunk);
            return;
        }
        if (count == chunk->size()) {
            return;
        }
        auto rest = std::make_shared<Chunk>();
        rest->reserve(chunk->size() - count);
        for (std::size_t index = 0; index < chunk->size(); ++index) {
            if (!picked[index]) {
                rest->push_back((*chunk)[index]);
            }
        }
        kept.push_back(std::move(rest));
    }

    void recount() {
        ends_.clear();
        std::size_t end = 0;
        for (const auto& chunk : chunks_) {
            end += chunk->size();
            ends_.push_back(end);
        }
    }

    std::vector<std::shared_ptr<Chunk>> chunks_; // none is empty
    std::vector<std::size_t> ends_;              // the index after each chunk's last element
};

} // namespace oakfen
