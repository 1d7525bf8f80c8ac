// Reads the tables of the tz database: UTF-8 lines, columns separated by tabs, comments after "#".
#pragma once

#include "text/UtCString.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace tzdatabase {

using Fields = std::vector<std::string>;

inline Fields Split(const std::string& text, char separator)
{
    Fields fields;
    size_t start = 0;
    for (size_t end = text.find(separator); end != std::string::npos; end = text.find(separator, start)) {
        fields.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    fields.push_back(text.substr(start));
    return fields;
}

inline std::vector<Fields> ReadTable(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error(std::string("cannot read ") + path + " (Debian: package tzdata)");
    std::vector<Fields> rows;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line[0] != '#')
            rows.push_back(Split(line, '\t'));
    }
    return rows;
}

/// Degrees of one coordinate, written as sign, degrees, minutes and, where there are more than four or five digits,
/// seconds: "+4723" is 47.38.
inline double Degrees(const std::string& coordinate, size_t degreeDigits)
{
    const double degrees = std::atoi(coordinate.substr(1, degreeDigits).c_str());
    const double minutes = std::atoi(coordinate.substr(1 + degreeDigits, 2).c_str());
    const std::string seconds = coordinate.size() > 3 + degreeDigits ? coordinate.substr(3 + degreeDigits, 2) : "0";
    const double value = degrees + minutes / 60 + std::atoi(seconds.c_str()) / 3600.0;
    return coordinate[0] == '-' ? -value : value;
}

struct Position
{
    double latitude;
    double longitude;
};

/// Both coordinates of a column such as "+4723+00832".
inline Position ReadPosition(const std::string& column)
{
    const size_t second = column.find_first_of("+-", 1);
    return {Degrees(column.substr(0, second), 2), Degrees(column.substr(second), 3)};
}

} // namespace tzdatabase
