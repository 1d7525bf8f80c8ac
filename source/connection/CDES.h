#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// A DES block cipher (FIPS 46-3) with one key, which it has for its whole life.
///
/// DES with 56 bits is broken and the built-in key is in every copy of the library: this hides a stored password from a
/// glance and protects it from nobody. See docs/server-ini.md.
class CDES
{
public:
    static constexpr std::size_t keySize = 7;
    static constexpr std::size_t blockSize = 8;

    /// 56 key bits without parity bits: one number, the most significant bit first.
    using Key = std::array<std::uint8_t, keySize>;
    using Block = std::array<std::uint8_t, blockSize>;

    enum class Mode
    {
        Encrypt,
        Decrypt
    };

    /// Takes the built-in key. It never changes: the passwords in the `Server.ini` files of all installations depend
    /// on it.
    CDES() noexcept;
    explicit CDES(const Key& key) noexcept;
    virtual ~CDES();

    /// One block through the cipher, without chaining or padding. Decryption undoes encryption.
    Block Transform(const Block& block, Mode mode) const noexcept;

    /// Whether the subkeys are derived; true from construction on.
    bool IsKeySet() const noexcept { return m_isKeySet; }

private:
    static constexpr std::size_t roundCount = 16;
    static constexpr std::size_t subkeySize = 6;
    using Subkey = std::array<std::uint8_t, subkeySize>;

    void SetKey(const Key& key) noexcept;

    bool m_isKeySet = false;
    std::array<Subkey, roundCount> m_subkeys{};
};
