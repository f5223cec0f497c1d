#include "phone/uikit/KeyboardLayout.h"

#include "phone/coregraphics/Graphemes.h"
#include "phone/uikit/Language.h"

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

bool isGerman(std::string_view language) { return languageOf(language) == Language::German; }

// The words on keys: en de fr es it nl pt ru ja zh
constexpr Translations spaceWords{"space",  "Leerzeichen", "espace", "espacio", "spazio",
                                  "spatie", "espaço",      "Пробел", "空白",    "空格"};
constexpr Translations returnWords{"return", "Return",  "retour", "intro", "invio",
                                   "return", "retorno", "Ввод",   "改行",  "换行"};
constexpr Translations goWords{"Go", "Öffnen", "Accéder", "Ir", "Vai", "Ga", "Ir", "Перейти", "開く", "前往"};
constexpr Translations searchWords{"Search", "Suchen", "Rechercher", "Buscar", "Cerca",
                                   "Zoek",   "Buscar", "Найти",      "検索",   "搜索"};
constexpr Translations joinWords{"Join",    "Verbinden", "Rejoindre", "Conectar", "Accedi",
                                 "Verbind", "Conectar",  "Войти",     "接続",     "加入"};
constexpr Translations nextWords{"Next",     "Weiter",  "Suivant", "Siguiente", "Avanti",
                                 "Volgende", "Próximo", "Далее",   "次へ",      "下一项"};
constexpr Translations routeWords{"Route", "Route", "Itinéraire", "Ruta", "Percorso",
                                  "Route", "Rota",  "Маршрут",    "経路", "路线"};
constexpr Translations sendWords{"Send",  "Senden", "Envoyer",   "Enviar", "Invia",
                                 "Stuur", "Enviar", "Отправить", "送信",   "发送"};
constexpr Translations doneWords{"Done", "Fertig", "OK", "OK", "Fine", "Gereed", "OK", "Готово", "完了", "完成"};
constexpr Translations emergencyCallWords{"Emergency Call", "Notruf",     "Appel d’urgence", "Llamada de emergencia",
                                          "Chiamata SOS",   "Noodoproep", "Emergência",      "Экстренный вызов",
                                          "緊急電話",       "紧急呼叫"};

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

// A tablet's second row ends with the return key.
constexpr Characters englishTabletDigits{{"1234567890", "-/:;()$&@", ".,?!'\""},
                                         {"1234567890", "-/:;()$&@", ".,?!'\""}};
constexpr Characters germanTabletDigits{{"1234567890", "-/:;()€&@", ".,?!'\""}, {"1234567890", "-/:;()€&@", ".,?!'\""}};
constexpr Characters englishTabletSymbols{{"[]{}#%^*+=", "_\\|~<>€£¥", ".,?!'•"},
                                          {"[]{}#%^*+=", "_\\|~<>€£¥", ".,?!'•"}};
constexpr Characters germanTabletSymbols{{"[]{}#%^*+=", "_\\|~<>$£¥", ".,?!'•"},
                                         {"[]{}#%^*+=", "_\\|~<>$£¥", ".,?!'•"}};

const Characters& tabletCharactersOf(KeyboardPlane plane, bool german) {
    switch (plane) {
    case KeyboardPlane::Letters:
        return german ? germanLetters : englishLetters;
    case KeyboardPlane::Digits:
        return german ? germanTabletDigits : englishTabletDigits;
    default:
        return german ? germanTabletSymbols : englishTabletSymbols;
    }
}

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

KeyboardKey spaceKey(const std::string& language, double width) {
    KeyboardKey space = special(Kind::Space, translated(spaceWords, language), width);
    space.lower = space.upper = " ";
    return space;
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

Row bottomRow(KeyboardPlane plane, UIReturnKeyType returnKey, const std::string& language, double length) {
    const bool letters = plane == KeyboardPlane::Letters;
    Row row{planeKey(letters ? KeyboardPlane::Digits : KeyboardPlane::Letters, letters ? "123" : "ABC", length / 4)};
    row.push_back(spaceKey(language, length / 2));
    row.push_back(special(Kind::Return, returnKeyTitle(returnKey, language), length / 4));
    return row;
}

/// Rows, and how far from the left edge the second begins, in letters; the others are centred.
struct Board {
    std::vector<Row> rows;
    double length = 0;
    double secondRowInset = 0;
};

Board phoneBoard(KeyboardPlane plane, const std::string& language, UIReturnKeyType returnKey) {
    const Characters& characters = charactersOf(plane, isGerman(language));
    Board board;
    board.rows = {characterRow(characters.lower[0], characters.upper[0]),
                  characterRow(characters.lower[1], characters.upper[1])};
    board.length = std::max(lengthOf(board.rows[0]), lengthOf(board.rows[1]));
    board.secondRowInset = (board.length - lengthOf(board.rows[1])) / 2;
    board.rows.push_back(thirdRow(characters, plane, board.length));
    board.rows.push_back(bottomRow(plane, returnKey, language, board.length));
    return board;
}

/// Backspace ends the first row and return the second; what changes the keys stands at both ends of the
/// lower two, and the last key puts the keyboard away.
Board tabletBoard(KeyboardPlane plane, const std::string& language, UIReturnKeyType returnKey) {
    const Characters& characters = tabletCharactersOf(plane, isGerman(language));
    const bool letters = plane == KeyboardPlane::Letters;
    Board board;
    Row first = characterRow(characters.lower[0], characters.upper[0]);
    first.push_back(special(Kind::Backspace, "", 1));
    board.length = lengthOf(first);

    Row second = characterRow(characters.lower[1], characters.upper[1]);
    const double left = board.length - lengthOf(second);
    board.secondRowInset = left >= 2 ? 0.5 : 0;
    second.push_back(special(Kind::Return, returnKeyTitle(returnKey, language), left - board.secondRowInset));

    Row third = characterRow(characters.lower[2], characters.upper[2]);
    if (letters) {
        const Row marks = characterRow(",.", ",.");
        third.insert(third.end(), marks.begin(), marks.end());
    }
    const double side = (board.length - lengthOf(third)) / 2;
    const KeyboardKey changes = letters                          ? special(Kind::Shift, "", side)
                                : plane == KeyboardPlane::Digits ? planeKey(KeyboardPlane::Symbols, "#+=", side)
                                                                 : planeKey(KeyboardPlane::Digits, "123", side);
    third.insert(third.begin(), changes);
    third.push_back(changes);

    constexpr double small = 1.5;
    const KeyboardKey other =
        planeKey(letters ? KeyboardPlane::Digits : KeyboardPlane::Letters, letters ? ".?123" : "ABC", small);
    const Row last{other, spaceKey(language, board.length - 3 * small), other, special(Kind::Hide, "", small)};
    board.rows = {first, second, third, last};
    return board;
}

/// Gives the keys of a row their places; the outer keys of a row shorter than the keyboard reach the edge.
void place(Row& row, double inset, CGFloat top, CGFloat height, double length, CGFloat width) {
    const CGFloat unit = width / length;
    CGFloat x = inset * unit;
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
    Board board = tablet ? tabletBoard(plane, language, returnKey) : phoneBoard(plane, language, returnKey);
    std::vector<KeyboardKey> keys;
    const CGFloat height = size.height / static_cast<CGFloat>(board.rows.size());
    for (std::size_t i = 0; i < board.rows.size(); ++i) {
        Row& row = board.rows[i];
        const double inset = i == 1 ? board.secondRowInset : (board.length - lengthOf(row)) / 2;
        place(row, inset, static_cast<CGFloat>(i) * height, height, board.length, size.width);
        keys.insert(keys.end(), row.begin(), row.end());
    }
    return keys;
}

std::string returnKeyTitle(UIReturnKeyType type, const std::string& language) {
    const auto words = [type]() -> const Translations& {
        switch (type) {
        case UIReturnKeyType::Go:
            return goWords;
        case UIReturnKeyType::Google:
        case UIReturnKeyType::Search:
        case UIReturnKeyType::Yahoo:
            return searchWords;
        case UIReturnKeyType::Join:
            return joinWords;
        case UIReturnKeyType::Next:
            return nextWords;
        case UIReturnKeyType::Route:
            return routeWords;
        case UIReturnKeyType::Send:
            return sendWords;
        case UIReturnKeyType::Done:
            return doneWords;
        case UIReturnKeyType::EmergencyCall:
            return emergencyCallWords;
        default:
            return returnWords;
        }
    };
    return translated(words(), language);
}

bool returnKeyIsProminent(UIReturnKeyType type) {
    return type != UIReturnKeyType::Default && type != UIReturnKeyType::Next;
}

} // namespace phone
