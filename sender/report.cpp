#include "sender/report.h"

#include <cstdint>
#include <cstring>
#include <ctime>
#include <string_view>
#include <unistd.h>

namespace {

constexpr std::uint32_t replacement = 0xFFFD;

struct Character
{
    std::uint32_t code;
    std::size_t size; ///< Bytes that it takes.
};

/// The character that a text begins with.
Character firstOf(std::string_view text)
{
    auto const lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80)
        return {lead, 1};
    std::size_t const size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC0 || lead >= 0xF8 || text.size() < size)
        return {replacement, 1};
    static constexpr std::uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    std::uint32_t code = lead & (0x7Fu >> size);
    for (std::size_t i = 1; i < size; ++i) {
        auto const byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80)
            return {replacement, 1};
        code = code << 6 | (byte & 0x3Fu);
    }
    bool const isSurrogate = code >= 0xD800 && code < 0xE000;
    if (code < least[size] || code > 0x10FFFF || isSurrogate)
        return {replacement, 1};
    return {code, size};
}

void addEscaped(OutputText& out, std::uint32_t code)
{
    if (code == '"' || code == '\\')
        out.addFormatted("\\%c", static_cast<int>(code));
    else if (code == '\n')
        out.add("\\n");
    else if (code >= 0x20 && code < 0x7F)
        out.addFormatted("%c", static_cast<int>(code));
    else if (code < 0x10000)
        out.addFormatted("\\u%04x", code);
    else
        out.addFormatted("\\u%04x\\u%04x", 0xD800 + ((code - 0x10000) >> 10),
                         0xDC00 + ((code - 0x10000) & 0x3FF));
}

void addString(OutputText& out, std::string_view text)
{
    out.add("\"");
    while (!text.empty()) {
        auto const [code, size] = firstOf(text);
        addEscaped(out, code);
        text.remove_prefix(size);
        if (out.pending().size() > 4000) // a word may have any length
            out.show();
    }
    out.add("\"");
}

void addTime(OutputText& out)
{
    std::time_t const now = std::time(nullptr);
    std::tm utc{};
    gmtime_r(&now, &utc);
    out.addFormatted("%d-%02d-%02dT%02d:%02d:%02dZ", utc.tm_year + 1900, utc.tm_mon + 1,
                     utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec);
}

/// The segment's own text, if there is one.
char const* reasonOf(Outcome const& outcome)
{
    bool const isOwnWord = outcome.kind == Outcome::Kind::unknownCommand;
    if (isOwnWord || outcome.reason.length == 0)
        return rowOf(outcome.kind).sentence;
    return outcome.reason.asChar();
}

} // namespace

void showJson(char const* word, Outcome const& outcome, OutputText const& text)
{
    char host[256] = "";
    gethostname(host, sizeof host - 1);
    OutputText out;
    out.add("{\"schema\": 1, \"host\": ");
    addString(out, host);
    out.add(", \"time\": \"");
    addTime(out);
    out.add("\", \"word\": ");
    if (word != nullptr)
        addString(out, word);
    else
        out.add("null");
    OutcomeRow const& row = rowOf(outcome.kind);
    out.addFormatted(", \"outcome\": \"%s\", \"status\": %d, \"reason\": ", row.name, row.status);
    addString(out, reasonOf(outcome));
    out.add(", \"text\": ");
    addString(out, text.pending());
    out.add("}\n");
    out.show();
}

void showBrief(Outcome const& outcome)
{
    OutcomeRow const& row = rowOf(outcome.kind);
    OutputText out;
    out.add(row.name);
    if (outcome.kind != Outcome::Kind::stored)
        out.addFormatted(": %s", row.sentence);
    out.add("\n");
    out.show();
}
