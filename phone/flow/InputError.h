/// What is wrong with something a person gave: a file, an option, a value.
#pragma once

#include <stdexcept>
#include <string>

namespace phone {

/// A line of a file that a person wrote.
struct Place {
    std::string file;
    int line = 0;    // from 1; 0 for the file as a whole
    int command = 0; // of a flow's list, from 1; 0 where there is no list

    /// "flow.yaml:3: command 2", "flow.yaml:3", or "flow.yaml" for the whole file.
    std::string text() const {
        const std::string number = command > 0 ? ": command " + std::to_string(command) : "";
        return (line > 0 ? file + ":" + std::to_string(line) : file) + number;
    }
};

/// Something given is unusable; the text is one line, with its place. The program ends with status 2.
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    InputError(const Place& place, const std::string& problem)
        : std::runtime_error(place.text() + ": " + problem), _place(place), _problem(problem) {}

    /// Without a file where the error knows none.
    const Place& place() const { return _place; }
    /// The text without the place; "" where the error knows none.
    const std::string& problem() const { return _problem; }

private:
    Place _place;
    std::string _problem;
};

} // namespace phone
