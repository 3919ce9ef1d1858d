// Joining animated PNG pieces by the format's own rules. A piece is the PNG signature, its header
// chunks (IHDR, pHYs, acTL with the frame count and plays), then per frame a frame control chunk
// (fcTL) followed by the picture's data, and IEND. The first frame's data is in IDAT chunks (the
// plain PNG picture a viewer without animation shows), later frames' in fdAT chunks; fcTL and fdAT
// chunks carry one sequence number running through the file. A piece of one frame is written as a
// plain PNG picture: no acTL, no fcTL. So the joined file takes the first piece's header with an
// acTL for the total frame count, every frame of every piece in order with the sequence numbers
// counted anew (and an fcTL made for a plain picture, as the muxer writes it), the later pieces'
// IDAT chunks turned into fdAT chunks, and one IEND; a movie of one frame stays a plain picture.
// Frames are copied as they are: each piece's first frame covers the whole picture and replaces
// what was there, so what the frames before it left does not show through.
//
// Pieces are read twice, first their headers (for the total frame count, which comes before the
// frames) and then their frames, one chunk at a time: a piece of lossless pictures is large.
extern "C" {
#include <libavutil/rational.h>
}
#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "movie/MovieOutput.h"
#include "movie/PieceJoiners.h"

namespace vexhost {
namespace {

const uint8_t kSignature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};

uint32_t bigEndian(const uint8_t* bytes) {
    return static_cast<uint32_t>(bytes[0]) << 24 | static_cast<uint32_t>(bytes[1]) << 16 |
           static_cast<uint32_t>(bytes[2]) << 8 | static_cast<uint32_t>(bytes[3]);
}

void putBigEndian(uint8_t* bytes, uint32_t value) {
    for (int i = 0; i < 4; ++i)
        bytes[i] = static_cast<uint8_t>(value >> (24 - 8 * i));
}

// A chunk's checksum, over its type and data. (zlib's crc32 starts afresh for a null buffer, which
// an empty chunk's data may be.)
uint32_t checksum(const uint8_t* type, const std::vector<uint8_t>& data) {
    uLong sum = crc32(0, type, 4);
    if (!data.empty())
        sum = crc32(sum, data.data(), static_cast<uInt>(data.size()));
    return static_cast<uint32_t>(sum);
}

struct Chunk {
    std::string type;
    std::vector<uint8_t> data;

    bool operator==(const Chunk& other) const { return type == other.type && data == other.data; }
};

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

class ChunkReader {
public:
    explicit ChunkReader(const std::string& path)
        : path_(path), file_(std::fopen(path.c_str(), "rb")) {
        if (!file_)
            fail(std::strerror(errno));
        uint8_t signature[8];
        if (std::fread(signature, 1, 8, file_.get()) != 8 ||
            std::memcmp(signature, kSignature, 8) != 0)
            fail("it is not a PNG file");
    }

    // The next chunk, its checksum checked; false at the end of the file.
    bool next(Chunk& chunk) {
        uint8_t head[8];
        const std::size_t got = std::fread(head, 1, 8, file_.get());
        if (got == 0 && std::feof(file_.get()))
            return false;
        if (got != 8)
            fail("it ends inside a chunk");
        chunk.type.assign(reinterpret_cast<const char*>(head + 4), 4);
        chunk.data.resize(bigEndian(head));
        uint8_t crc[4];
        if (std::fread(chunk.data.data(), 1, chunk.data.size(), file_.get()) != chunk.data.size() ||
            std::fread(crc, 1, 4, file_.get()) != 4)
            fail("it ends inside a chunk");
        if (bigEndian(crc) != checksum(head + 4, chunk.data))
            fail("its " + chunk.type + " chunk is damaged");
        return true;
    }

    [[noreturn]] void fail(const std::string& why) const { throw unreadablePiece(path_, why); }

private:
    std::string path_;
    std::unique_ptr<std::FILE, FileCloser> file_;
};

class ChunkWriter {
public:
    ChunkWriter(const std::string& path, const std::string& displayName)
        : displayName_(displayName), file_(std::fopen(path.c_str(), "wb")) {
        if (!file_)
            fail();
        put(kSignature, 8);
    }

    void write(const Chunk& chunk) {
        uint8_t head[8];
        putBigEndian(head, static_cast<uint32_t>(chunk.data.size()));
        std::memcpy(head + 4, chunk.type.data(), 4);
        uint8_t crc[4];
        putBigEndian(crc, checksum(head + 4, chunk.data));
        put(head, 8);
        put(chunk.data.data(), chunk.data.size());
        put(crc, 4);
    }

    void close() {
        if (std::fclose(file_.release()) != 0)
            fail();
    }

private:
    void put(const uint8_t* bytes, std::size_t size) {
        // An empty chunk (IEND) has no bytes, and fwrite must not be given its null pointer.
        if (size == 0)
            return;
        if (std::fwrite(bytes, 1, size, file_.get()) != size)
            fail();
    }
    [[noreturn]] void fail() const {
        throw std::runtime_error(MovieOutput::cannotWrite(displayName_, std::strerror(errno)));
    }

    std::string displayName_;
    std::unique_ptr<std::FILE, FileCloser> file_;
};

bool isFrameChunk(const std::string& type) {
    return type == "fcTL" || type == "IDAT" || type == "fdAT";
}

// What a piece's header says: its chunks but acTL, and acTL's frame count and plays (1 frame and
// no plays for a plain picture).
struct Header {
    std::vector<Chunk> chunks;
    uint32_t frames = 1;
    std::optional<uint32_t> plays;
};

// Reads a piece's header, up to its first frame chunk (kept in `first`).
Header readHeader(ChunkReader& piece, Chunk& first) {
    Header header;
    bool animated = false;
    while (piece.next(first)) {
        if (isFrameChunk(first.type)) {
            if (header.chunks.empty() || header.chunks.front().type != "IHDR" ||
                header.chunks.front().data.size() != 13)
                piece.fail("it does not start with IHDR");
            if (animated != (first.type == "fcTL"))
                piece.fail("its first picture is not an animation frame");
            return header;
        }
        if (first.type == "acTL") {
            if (first.data.size() != 8)
                piece.fail("its acTL chunk is damaged");
            animated = true;
            header.frames = bigEndian(first.data.data());
            header.plays = bigEndian(first.data.data() + 4);
        } else {
            header.chunks.push_back(first);
        }
    }
    piece.fail("it has no frames");
}

// A frame control chunk for the whole picture, shown for one frame's time, as the muxer writes it.
Chunk frameControl(const Chunk& imageHeader, AVRational frameRate) {
    int delayNumerator = 0, delayDenominator = 0;
    av_reduce(&delayNumerator, &delayDenominator, frameRate.den, frameRate.num, 65535);
    Chunk chunk{"fcTL", std::vector<uint8_t>(26, 0)};
    std::memcpy(chunk.data.data() + 4, imageHeader.data.data(), 8);  // width, height
    chunk.data[20] = static_cast<uint8_t>(delayNumerator >> 8);
    chunk.data[21] = static_cast<uint8_t>(delayNumerator);
    chunk.data[22] = static_cast<uint8_t>(delayDenominator >> 8);
    chunk.data[23] = static_cast<uint8_t>(delayDenominator);
    return chunk;  // offset 0, 0; dispose and blend 0: none, source
}

}  // namespace

WrittenMovie joinPngChunks(const std::vector<std::string>& pieces, AVRational frameRate,
                           const std::string& output, const std::string& displayName) {
    std::vector<Header> headers;
    uint32_t frames = 0;
    // The muxer's own number when no piece says (it plays a movie once).
    uint32_t plays = 1;
    Chunk chunk;
    for (const std::string& path : pieces) {
        ChunkReader piece(path);
        headers.push_back(readHeader(piece, chunk));
        if (headers.back().chunks != headers.front().chunks)
            throw piecesThatDiffer(path, pieces.front());
        frames += headers.back().frames;
        plays = headers.back().plays.value_or(plays);
    }

    ChunkWriter movie(output, displayName);
    const std::vector<Chunk>& header = headers.front().chunks;
    for (const Chunk& headerChunk : header)
        movie.write(headerChunk);
    const bool animated = frames > 1;
    if (animated) {
        Chunk control{"acTL", std::vector<uint8_t>(8)};
        putBigEndian(control.data.data(), frames);
        putBigEndian(control.data.data() + 4, plays);
        movie.write(control);
    }
    uint32_t sequence = 0;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        ChunkReader piece(pieces[i]);
        readHeader(piece, chunk);
        uint32_t frame = 0;  // of this piece, from 1
        if (chunk.type == "IDAT" && animated) {
            Chunk control = frameControl(header.front(), frameRate);
            putBigEndian(control.data.data(), sequence++);
            movie.write(control);
            frame = 1;
        }
        do {
            if (chunk.type == "IEND")
                break;
            if (chunk.type == "fcTL" && chunk.data.size() == 26) {
                ++frame;
            } else if (chunk.type == "IDAT" && frame <= 1) {
                if (i > 0) {
                    chunk.type = "fdAT";
                    chunk.data.insert(chunk.data.begin(), 4, 0);
                }
            } else if (chunk.type != "fdAT" || chunk.data.size() < 4 || frame < 2) {
                piece.fail("a " + chunk.type + " chunk is out of place");
            }
            if (chunk.type != "IDAT")
                putBigEndian(chunk.data.data(), sequence++);
            movie.write(chunk);
        } while (piece.next(chunk));
        if (chunk.type != "IEND")
            piece.fail("it does not end with IEND");
        // The joined header's frame count is the sum of the pieces' own: they must be right.
        if (std::max(frame, 1u) != headers[i].frames)
            piece.fail("its header counts " + std::to_string(headers[i].frames) + " frames, not " +
                       std::to_string(frame));
    }
    movie.write(Chunk{"IEND", {}});
    movie.close();

    WrittenMovie written;
    written.frames = frames;
    const uint8_t* size = header.front().data.data();
    written.encodedWidth = static_cast<int>(bigEndian(size));
    written.encodedHeight = static_cast<int>(bigEndian(size + 4));
    return written;
}

}  // namespace vexhost
