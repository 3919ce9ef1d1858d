// An option list as FFmpeg takes it (AVDictionary), made from MovieEncoding::Options and freed with
// the scope.
#ifndef VEXHOST_MOVIE_FFMPEGDICTIONARY_H
#define VEXHOST_MOVIE_FFMPEGDICTIONARY_H

extern "C" {
#include <libavutil/dict.h>
}

#include <string>

#include "movie/MovieEncoding.h"

namespace vexhost {

class FfmpegDictionary {
public:
    explicit FfmpegDictionary(const MovieEncoding::Options& options) {
        for (const auto& [key, value] : options) {
            av_dict_set(&dictionary_, key.c_str(), value.c_str(), 0);
        }
    }
    ~FfmpegDictionary() { av_dict_free(&dictionary_); }
    FfmpegDictionary(const FfmpegDictionary&) = delete;
    FfmpegDictionary& operator=(const FfmpegDictionary&) = delete;

    AVDictionary** get() { return &dictionary_; }
    // The first option nobody took, or empty: a misspelt option must not pass silently.
    std::string leftOver() const {
        const AVDictionaryEntry* entry =
            av_dict_get(dictionary_, "", nullptr, AV_DICT_IGNORE_SUFFIX);
        return entry != nullptr ? entry->key : "";
    }

private:
    AVDictionary* dictionary_ = nullptr;  // owned
};

}  // namespace vexhost

#endif
