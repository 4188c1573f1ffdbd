#pragma once

/// Reads the tables and byte examples of a document in docs/, so that tests can hold them against
/// the code.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <fstream>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace documents {

/// One line of a table as its cells, without blanks and backticks around them.
using Cells = std::vector<std::string>;

struct Table
{
    std::string caption; ///< The paragraph ahead of it, as one line.
    Cells header;
    std::vector<Cells> rows;
};

/// A block between ``` lines.
struct Example
{
    std::string caption; ///< The paragraph ahead of it, as one line.
    std::string text;
};

struct Document
{
    std::vector<std::string> paragraphs; ///< Headings and lists too, each as one line.
    std::vector<Table> tables;
    std::vector<Example> examples;
};

/// A field of an image, as a table tells it or as the code has it.
struct Field
{
    std::string name;
    std::size_t offset = 0;
    std::size_t size = 0;

    bool operator==(Field const&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, Field const& field)
{
    return out << field.name << " at " << field.offset << ", " << field.size << " bytes";
}

inline std::string trimmed(std::string const& text, char const* blanks = " \r")
{
    std::size_t const first = text.find_first_not_of(blanks);
    std::size_t const last = text.find_last_not_of(blanks);
    return first == std::string::npos ? "" : text.substr(first, last - first + 1);
}

/// "| 0 | `length` |" as "0" and "length".
inline Cells cellsOf(std::string const& line)
{
    Cells cells;
    std::istringstream parts(line.substr(1));
    for (std::string part; std::getline(parts, part, '|');) {
        cells.push_back(trimmed(part, " `\r"));
    }
    return cells;
}

/// Reads a whole document. A file that cannot be opened fails the test and reads as empty.
inline Document readDocument(std::string const& path)
{
    Document document;
    std::ifstream file(path);
    EXPECT_TRUE(file.is_open()) << "cannot open " << path;

    enum class In
    {
        nothing,
        paragraph,
        table,
        example
    } in = In::nothing;
    for (std::string line; std::getline(file, line);) {
        std::string const caption = document.paragraphs.empty() ? "" : document.paragraphs.back();
        if (line.rfind("```", 0) == 0) {
            if (in == In::example) {
                in = In::nothing;
            } else {
                in = In::example;
                document.examples.push_back({caption, ""});
            }
        } else if (in == In::example) {
            document.examples.back().text += line + '\n';
        } else if (trimmed(line).empty()) {
            in = In::nothing;
        } else if (line[0] != '|') {
            if (in == In::paragraph) {
                document.paragraphs.back() += ' ' + trimmed(line);
            } else {
                document.paragraphs.push_back(trimmed(line));
            }
            in = In::paragraph;
        } else if (in != In::table) {
            in = In::table;
            document.tables.push_back({caption, cellsOf(line), {}});
        } else if (line.find_first_not_of("|-: \r") != std::string::npos) {
            document.tables.back().rows.push_back(cellsOf(line));
        }
    }
    return document;
}

/// The tables with exactly this header.
inline std::vector<Table> tablesHeaded(Document const& document, Cells const& header)
{
    std::vector<Table> found;
    for (Table const& table : document.tables) {
        if (table.header == header) {
            found.push_back(table);
        }
    }
    return found;
}

/// The value of a sum like "2N + 4", "N" or "22988" at the capacity n. Anything else fails the
/// test.
inline std::size_t evaluate(std::string const& expression, std::size_t n = 0)
{
    std::size_t sum = 0;
    std::istringstream terms(expression);
    for (std::string part; std::getline(terms, part, '+');) {
        std::string term = trimmed(part);
        std::size_t factor = 1;
        if (!term.empty() && term.back() == 'N') {
            factor = n;
            term.pop_back();
            term = term.empty() ? "1" : term;
        }
        bool const isNumber =
            !term.empty() && std::all_of(term.begin(), term.end(),
                                         [](unsigned char c) { return std::isdigit(c) != 0; });
        if (!isNumber) {
            ADD_FAILURE() << '"' << expression << "\" is no sum of numbers and multiples of N";
            return 0;
        }
        sum += factor * std::stoul(term);
    }
    return sum;
}

/// The rows of a table as fields at the capacity n; `nameColumn` heads their names.
inline std::vector<Field> fieldsOf(Table const& table, char const* nameColumn, std::size_t n = 0)
{
    auto const column = [&table](std::string const& name) {
        auto const found = std::find(table.header.begin(), table.header.end(), name);
        EXPECT_NE(found, table.header.end()) << "no column " << name;
        return static_cast<std::size_t>(found - table.header.begin());
    };
    std::size_t const offset = column("Offset");
    std::size_t const size = column("Size");
    std::size_t const name = column(nameColumn);
    std::vector<Field> fields;
    for (Cells const& row : table.rows) {
        if (row.size() != table.header.size()) {
            ADD_FAILURE() << "a row of " << row.size() << " cells, under: " << table.caption;
            continue;
        }
        fields.push_back({row[name], evaluate(row[offset], n), evaluate(row[size], n)});
    }
    return fields;
}

/// The fields follow one another from 0 to `total`, with nothing between them.
inline void expectNoGap(std::vector<Field> const& fields, std::size_t total)
{
    std::size_t next = 0;
    for (Field const& field : fields) {
        EXPECT_EQ(field.offset, next) << field;
        EXPECT_GT(field.size, 0U) << field;
        next = field.offset + field.size;
    }
    EXPECT_EQ(next, total);
}

} // namespace documents
