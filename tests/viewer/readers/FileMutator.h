#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

namespace qel::test {

/// Spoils files in ways that damage and malice do. The same seed always spoils in the same way.
class FileMutator {
  public:
    explicit FileMutator(std::uint64_t seed) : generator(seed) {}

    /// The bytes with one to four things wrong: bits flipped, pieces cut, repeated or moved, numbers in text
    /// and in binary replaced by those that readers stumble over.
    [[nodiscard]] std::string mutated(std::string bytes);

    /// From 0 to one less than `count`, which is not 0.
    [[nodiscard]] std::size_t pick(std::size_t count);

  private:
    void flipBit(std::string& bytes);
    void overwriteByte(std::string& bytes);
    void cutEnd(std::string& bytes);
    void cutPiece(std::string& bytes);
    void repeatPiece(std::string& bytes);
    void movePiece(std::string& bytes);
    void replaceTextNumber(std::string& bytes);
    void replaceBinaryNumber(std::string& bytes);

    std::mt19937_64 generator;
};

}  // namespace qel::test
