#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/Models/JSONParsing.h"
#include "OakfenCore/Models/Library.h"

namespace oakfen {

class LibraryDecoder;

/// A list or an object that has begun and not ended yet, and the part of the document that it is
/// read into.
class DecodingFrame {
public:
    virtual ~DecodingFrame() = default;

    /// Notes the key of the next value.
    virtual void key(std::string_view) {}
    /// Reads the next value; if it is a list or an object, that opens a frame of its own.
    virtual void read(LibraryDecoder& decoder, const JSONValue& json) = 0;
    /// The value that was read last is whole.
    virtual void valueEnded() {}
    /// The list or object itself is whole.
    virtual void end() {}
    /// Where the next value goes, or the one that has begun: ".amount", "[12]".
    [[nodiscard]] virtual std::string place() const { return {}; }
};

/// Reads the values of a JSON text into the members of records.
///
/// It keeps a stack of frames: at the bottom the document, above it perhaps the list of entries,
/// one entry, its list of splits, one split. Each value goes to the frame on top. The places of all
/// frames in a row are the path that an error names.
class LibraryDecoder : public JSONListener {
public:
    explicit LibraryDecoder(Library& library);

    void key(std::string_view key) override;
    void value(const JSONValue& json) override;
    void end() override;

    /// Takes the value over, or opens a frame for it.
    template <typename Value>
    void read(const JSONValue& json, Value& value);
    /// Passes over the value and all that is in it.
    void skip(const JSONValue& json) { skippedLevels_ = json.opens() ? 1 : 0; }

    [[nodiscard]] std::string path() const;

private:
    template <typename NewFrame, typename Value>
    void open(Value& value) {
        frames_.push_back(std::make_unique<NewFrame>(value));
    }

    std::vector<std::unique_ptr<DecodingFrame>> frames_;
    /// How many lists and objects are open within the frames, all of which nobody wants.
    std::size_t skippedLevels_ = 0;
};

} // namespace oakfen
