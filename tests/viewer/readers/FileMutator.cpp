#include "FileMutator.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace qel::test {

namespace {

constexpr std::size_t kLongestPiece = 4096;

constexpr std::array<std::string_view, 22> kTextNumbers{"0",          "-1",
                                                        "1",          "2",
                                                        "3",          "255",
                                                        "256",        "65536",
                                                        "-9",         "1e5",
                                                        "nan",        "2147483647",
                                                        "2147483648", "4294967295",
                                                        "4294967296", "-2147483648",
                                                        "inf",        "1e39",
                                                        "",           "1e400",
                                                        "1e-320",     "99999999999999999999"};

constexpr std::array<std::uint32_t, 10> kBinaryNumbers{
    0, 1, 0xFF, 0xFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, 0x7F800000, 0x7FC00000, 0x7F7FFFFF};

bool isOfANumber(char character) {
    return (character >= '0' && character <= '9') || character == '.' || character == '-';
}

}  // namespace

std::string FileMutator::mutated(std::string bytes) {
    using Operation = void (FileMutator::*)(std::string&);
    // Numbers stand twice: most of what can go wrong goes wrong in them.
    static constexpr std::array<Operation, 10> kOperations{&FileMutator::flipBit,
                                                           &FileMutator::overwriteByte,
                                                           &FileMutator::cutEnd,
                                                           &FileMutator::cutPiece,
                                                           &FileMutator::repeatPiece,
                                                           &FileMutator::movePiece,
                                                           &FileMutator::replaceTextNumber,
                                                           &FileMutator::replaceTextNumber,
                                                           &FileMutator::replaceTextNumber,
                                                           &FileMutator::replaceBinaryNumber};
    constexpr std::size_t kMostFaults = 4;
    for (std::size_t faults = 1 + pick(kMostFaults); faults > 0 && !bytes.empty(); --faults) {
        (this->*kOperations.at(pick(kOperations.size())))(bytes);
    }
    return bytes;
}

std::size_t FileMutator::pick(std::size_t count) {
    return generator() % count;
}

void FileMutator::flipBit(std::string& bytes) {
    char& hit = bytes[pick(bytes.size())];
    hit = static_cast<char>(hit ^ (1 << pick(8)));
}

void FileMutator::overwriteByte(std::string& bytes) {
    bytes[pick(bytes.size())] = static_cast<char>(pick(256));
}

void FileMutator::cutEnd(std::string& bytes) {
    bytes.resize(pick(bytes.size()));
}

void FileMutator::cutPiece(std::string& bytes) {
    bytes.erase(pick(bytes.size()), 1 + pick(kLongestPiece));
}

void FileMutator::repeatPiece(std::string& bytes) {
    const std::size_t begin = pick(bytes.size());
    const std::string piece = bytes.substr(begin, 1 + pick(kLongestPiece));
    for (std::size_t times = 1 + pick(3); times > 0; --times) {
        bytes.insert(begin, piece);
    }
}

void FileMutator::movePiece(std::string& bytes) {
    const std::size_t begin = pick(bytes.size());
    const std::string piece = bytes.substr(begin, 1 + pick(kLongestPiece));
    bytes.erase(begin, piece.size());
    bytes.insert(pick(bytes.size() + 1), piece);
}

void FileMutator::replaceTextNumber(std::string& bytes) {
    const auto from = bytes.begin() + static_cast<std::ptrdiff_t>(pick(bytes.size()));
    const auto begin = std::find_if(from, bytes.end(), isOfANumber);
    const auto end = std::find_if_not(begin, bytes.end(), isOfANumber);
    bytes.replace(begin, end, kTextNumbers.at(pick(kTextNumbers.size())));
}

void FileMutator::replaceBinaryNumber(std::string& bytes) {
    const std::uint32_t number = kBinaryNumbers.at(pick(kBinaryNumbers.size()));
    const std::size_t begin = pick(bytes.size());
    for (std::size_t i = 0; i < sizeof number && begin + i < bytes.size(); ++i) {
        bytes[begin + i] = static_cast<char>(number >> (8 * i));
    }
}

}  // namespace qel::test
