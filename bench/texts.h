#pragma once

#include <cstdint>
#include <string>

/// The sample texts of all benchmarks: of exactly the size that is asked for, and the same in
/// every run.

/// Picks one of a list. Mixed, since a text of plainly repeated words would be a periodic one.
template <std::size_t count>
char const* pick(char const* const (&list)[count], std::uint32_t& seed)
{
    seed = seed * 1664525 + 1013904223;
    return list[(seed >> 16) % count];
}

/// Prose: words, sentences, capitals. Holds "the" from the first 25 characters on.
inline std::string commonText(std::size_t size)
{
    static constexpr char const* words[] = {
        "the",   "a",      "of",    "and",    "light", "frame", "camera", "in",    "shadow", "to",
        "with",  "render", "is",    "slow",   "from",  "scene", "that",   "night", "waits",  "for",
        "every", "house",  "river", "behind", "was",   "on",    "quiet",  "at",    "colour", "it",
        "has",   "moved",  "by",    "hand",   "glass", "runs",  "small",  "or",    "water",  "not"};
    std::string text = "Behind the quiet hills";
    std::uint32_t seed = 7;
    while (text.size() < size) {
        bool const ends = (seed >> 16) % 9 == 0;
        std::string word = pick(words, seed);
        if (ends)
            word[0] = static_cast<char>(word[0] - ('a' - 'A'));
        text += (ends ? ". " : " ") + word;
    }
    text.resize(size);
    return text;
}

/// A list of paths as a farm has them: many slashes, and names between them that are much alike.
inline std::string pathText(std::size_t size)
{
    static constexpr char const* shows[] = {"/show_07", "/show_11", "/show_23"};
    static constexpr char const* shots[] = {"/shot_0010", "/shot_0120", "/shot_0430", "/shot_0435"};
    static constexpr char const* files[] = {"/beauty_v003.exr", "/depth_v003.exr",
                                            "/comp_v011.exr"};
    std::string text;
    std::uint32_t seed = 3;
    while (text.size() < size) {
        text += "/mnt/farm";
        text += pick(shows, seed);
        text += pick(shots, seed);
        text += "/render";
        text += pick(files, seed);
        text += ';';
    }
    text.resize(size);
    return text;
}

/// "abcabcabc...": nearly every place looks like a beginning.
inline std::string periodicText(std::size_t size)
{
    std::string text;
    while (text.size() < size)
        text += "abc";
    text.resize(size);
    return text;
}

/// A text and the patterns to search for in it.
struct Sample
{
    char const* name;
    std::string (*text)(std::size_t size);
    char const* late;   ///< Not in the text; `lateText` puts it at the end.
    char const* absent; ///< Nowhere in the text.
};

/// Neither pattern of the prose begins with a rare letter, which would spare a search by first
/// letters nearly all of its work. The periodic ones have the ends of the text's own spans, and
/// those of "permuted" their sums too: a search that sieves by ends or sums takes every third
/// place for a hit.
inline constexpr Sample samples[] = {
    {"common", commonText, "harbour", "rendered"},
    {"path", pathText, "/shot_0999", "/shot_0998"},
    {"periodic", periodicText, "abcabdabcabc", "abcabeabcabc"},
    {"permuted", periodicText, "abcacbabcabc", "abcbacabcabc"},
};

/// The sample's text with its late pattern as the last characters.
inline std::string lateText(Sample const& sample, std::size_t size)
{
    std::string const pattern = sample.late;
    return sample.text(size - pattern.size()) + pattern;
}

/// ASCII upper case.
inline std::string upperCase(std::string text)
{
    for (char& c : text)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - ('a' - 'A'));
    return text;
}

/// The same text in units of 16 bits.
inline std::u16string wide(std::string const& text)
{
    return {text.begin(), text.end()};
}
