#include "phone/uikit/KeyboardLayout.h"

#include "phone/coregraphics/Graphemes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace phone {

namespace {

using Kind = KeyboardKey::Kind;
using Row = std::vector<KeyboardKey>;

/// Between the caps of neighbouring keys and around them, in points.
constexpr CGFloat capGapX = 3;
constexpr CGFloat capTop = 10;
constexpr CGFloat capBottom = 5;

bool isGerman(std::string_view language) {
    return language == "de" || language.starts_with("de-") || language.starts_with("de_");
}

/// The rows of one plane: what each key types. Letters carry their capitals in the same places.
struct Characters {
    std::array<const char*, 3> lower;
    std::array<const char*, 3> upper;
};

constexpr Characters englishLetters{{"qwertyuiop", "asdfghjkl", "zxcvbnm"}, {"QWERTYUIOP", "ASDFGHJKL", "ZXCVBNM"}};
constexpr Characters germanLetters{{"qwertzuiopü", "asdfghjklöä", "yxcvbnm"},
                                   {"QWERTZUIOPÜ", "ASDFGHJKLÖÄ", "YXCVBNM"}};
constexpr Characters englishDigits{{"1234567890", "-/:;()$&@\"", ".,?!'"}, {"1234567890", "-/:;()$&@\"", ".,?!'"}};
constexpr Characters germanDigits{{"1234567890", "-/:;()€&@\"", ".,?!'"}, {"1234567890", "-/:;()€&@\"", ".,?!'"}};
constexpr Characters englishSymbols{{"[]{}#%^*+=", "_\\|~<>€£¥•", ".,?!'"}, {"[]{}#%^*+=", "_\\|~<>€£¥•", ".,?!'"}};
constexpr Characters germanSymbols{{"[]{}#%^*+=", "_\\|~<>$£¥•", ".,?!'"}, {"[]{}#%^*+=", "_\\|~<>$£¥•", ".,?!'"}};

const Characters& charactersOf(KeyboardPlane plane, bool german) {
    switch (plane) {
    case KeyboardPlane::Letters:
        return german ? germanLetters : englishLetters;
    case KeyboardPlane::Digits:
        return german ? germanDigits : englishDigits;
    default:
        return german ? germanSymbols : englishSymbols;
    }
}

Row characterRow(const char* lower, const char* upper) {
    Row row;
    const auto small = graphemes(lower);
    const auto capital = graphemes(upper);
    for (std::size_t i = 0; i < small.size(); ++i) {
        KeyboardKey key;
        key.title = capital[i]; // the caps of this system show capitals, whatever they type
        key.lower = small[i];
        key.upper = capital[i];
        key.alternate = small[i] == "s" ? "ß" : "";
        row.push_back(key);
    }
    return row;
}

KeyboardKey special(Kind kind, const std::string& title, double width) {
    KeyboardKey key;
    key.kind = kind;
    key.title = title;
    key.width = width;
    return key;
}

KeyboardKey planeKey(KeyboardPlane plane, const std::string& title, double width) {
    KeyboardKey key = special(Kind::Plane, title, width);
    key.plane = plane;
    return key;
}

double lengthOf(const Row& row) {
    double sum = 0;
    for (const KeyboardKey& key : row) {
        sum += key.width;
    }
    return sum;
}

/// The third row: characters between the key at the left that changes the others, and backspace.
Row thirdRow(const Characters& characters, KeyboardPlane plane, double length) {
    Row row = characterRow(characters.lower[2], characters.upper[2]);
    const bool letters = plane == KeyboardPlane::Letters;
    const double side = letters ? (length - static_cast<double>(row.size())) / 2 : length * 0.15;
    if (!letters) {
        for (KeyboardKey& key : row) {
            key.width = (length - 2 * side) / static_cast<double>(row.size());
        }
    }
    row.insert(row.begin(), letters                          ? special(Kind::Shift, "", side)
                            : plane == KeyboardPlane::Digits ? planeKey(KeyboardPlane::Symbols, "#+=", side)
                                                             : planeKey(KeyboardPlane::Digits, "123", side));
    row.push_back(special(Kind::Backspace, "", side));
    return row;
}

Row bottomRow(KeyboardPlane plane, UIReturnKeyType returnKey, const std::string& language, double length, bool tablet) {
    const bool letters = plane == KeyboardPlane::Letters;
    Row row{planeKey(letters ? KeyboardPlane::Digits : KeyboardPlane::Letters, letters ? "123" : "ABC", length / 4)};
    KeyboardKey space = special(Kind::Space, isGerman(language) ? "Leerzeichen" : "space", length / 2);
    space.lower = space.upper = " ";
    row.push_back(space);
    row.push_back(special(Kind::Return, returnKeyTitle(returnKey, language), tablet ? length * 0.15 : length / 4));
    if (tablet) {
        row.push_back(special(Kind::Hide, "", length * 0.1));
    }
    return row;
}

/// Gives the keys of a row their places; the outer keys of a row shorter than the keyboard reach the edge.
void place(Row& row, CGFloat top, CGFloat height, double length, CGFloat width) {
    const CGFloat unit = width / length;
    CGFloat x = (length - lengthOf(row)) / 2 * unit;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const CGFloat next = x + row[i].width * unit;
        const CGFloat left = i == 0 ? 0 : x;
        const CGFloat right = i + 1 == row.size() ? width : next;
        row[i].touch = {left, top, right - left, height};
        row[i].cap = {x - left + capGapX, capTop, next - x - 2 * capGapX, height - capTop - capBottom};
        x = next;
    }
}

} // namespace

std::vector<KeyboardKey> keyboardKeys(KeyboardPlane plane, const std::string& language, UIReturnKeyType returnKey,
                                      CGSize size, bool tablet) {
    const Characters& characters = charactersOf(plane, isGerman(language));
    std::vector<Row> rows{characterRow(characters.lower[0], characters.upper[0]),
                          characterRow(characters.lower[1], characters.upper[1])};
    const double length = std::max(lengthOf(rows[0]), lengthOf(rows[1]));
    rows.push_back(thirdRow(characters, plane, length));
    rows.push_back(bottomRow(plane, returnKey, language, length, tablet));

    std::vector<KeyboardKey> keys;
    const CGFloat height = size.height / static_cast<CGFloat>(rows.size());
    CGFloat top = 0;
    for (Row& row : rows) {
        place(row, top, height, length, size.width);
        keys.insert(keys.end(), row.begin(), row.end());
        top += height;
    }
    return keys;
}

std::string returnKeyTitle(UIReturnKeyType type, const std::string& language) {
    const bool german = isGerman(language);
    switch (type) {
    case UIReturnKeyType::Go:
        return german ? "Öffnen" : "Go";
    case UIReturnKeyType::Google:
    case UIReturnKeyType::Search:
    case UIReturnKeyType::Yahoo:
        return german ? "Suchen" : "Search";
    case UIReturnKeyType::Join:
        return german ? "Verbinden" : "Join";
    case UIReturnKeyType::Next:
        return german ? "Weiter" : "Next";
    case UIReturnKeyType::Route:
        return "Route";
    case UIReturnKeyType::Send:
        return german ? "Senden" : "Send";
    case UIReturnKeyType::Done:
        return german ? "Fertig" : "Done";
    case UIReturnKeyType::EmergencyCall:
        return german ? "Notruf" : "Emergency Call";
    default:
        return german ? "Return" : "return";
    }
}

bool returnKeyIsProminent(UIReturnKeyType type) {
    return type != UIReturnKeyType::Default && type != UIReturnKeyType::Next;
}

} // namespace phone
