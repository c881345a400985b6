#include "framework/dialogs/PasswordGenerator.h"

#include "platform/properties/KxPropertyPool.h"

#include <QRandomGenerator>

#include <cstdlib>
#include <ctime>
#include <functional>
#include <string_view>

namespace {

constexpr std::string_view letters = "abcdefghjkmnpqrstuvwxyz"; // no i, l, o
constexpr std::string_view digits = "23456789"; // no 0, 1
constexpr std::string_view pattern = "aaa99aaa";

bool useSystemEntropy()
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    const auto &setting = pool.property(
        "Hidden.PasswordGenerator", QStringLiteral("Time"), pool.defaultSerializer());
    return setting.value() == QLatin1String("System");
}

QString passwordFrom(const std::function<unsigned()> &random)
{
    QString password;
    for (const char place : pattern) {
        const unsigned value = random();
        password
            += QLatin1Char(place == 'a' ? letters[value % letters.size()] : digits[value & 7U]);
    }
    return password;
}

} // namespace

QString generatedPassword()
{
    if (useSystemEntropy()) {
        return passwordFrom([] { return QRandomGenerator::system()->generate(); });
    }
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    return passwordFrom([] { return static_cast<unsigned>(std::rand()); });
}
