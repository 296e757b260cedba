// SPDX-License-Identifier: MIT
#include "tests/docs/PublicNames.h"

#include <cctype>
#include <regex>
#include <vector>

namespace geom::test {

namespace {

using Tokens = std::vector<std::string>;

std::string WithoutCommentsAndDirectives(const std::string& text) {
    static const std::regex noise(R"(//[^\n]*|/\*[^]*?\*/|"[^"\n]*"|\n[ \t]*#(\\\n|[^\n])*)");
    return std::regex_replace("\n" + text, noise, " ");
}

bool IsWordCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

/// Words, "::", and other characters one by one.
Tokens Split(const std::string& text) {
    Tokens tokens;
    for (std::size_t i = 0; i < text.size();) {
        std::size_t end = i + 1;
        if (std::isspace(static_cast<unsigned char>(text[i])) != 0) {
            i = end;
            continue;
        }
        if (IsWordCharacter(text[i])) {
            while (end < text.size() && IsWordCharacter(text[end])) {
                ++end;
            }
        } else if (text.compare(i, 2, "::") == 0) {
            ++end;
        }
        tokens.push_back(text.substr(i, end - i));
        i = end;
    }
    return tokens;
}

bool IsAccess(const std::string& word) {
    return word == "public" || word == "protected" || word == "private";
}

class Reader {
public:
    explicit Reader(Tokens tokens) : m_tokens(std::move(tokens)) {}

    std::set<std::string> Names() {
        ReadScope("", true);
        return m_names;
    }

private:
    bool AtEnd() const { return m_at >= m_tokens.size(); }
    const std::string& Here() const { return m_tokens[m_at]; }
    bool NextIs(const char* token) const {
        return m_at + 1 < m_tokens.size() && m_tokens[m_at + 1] == token;
    }

    /// From behind an opening brace to behind the closing one.
    void SkipBody() {
        for (int depth = 1; depth > 0 && !AtEnd(); ++m_at) {
            depth += Here() == "{" ? 1 : 0;
            depth -= Here() == "}" ? 1 : 0;
        }
    }

    /// The tokens up to a semicolon or an opening brace outside of parentheses.
    Tokens ReadHead() {
        Tokens head;
        for (int depth = 0; !AtEnd(); ++m_at) {
            if (depth == 0 && (Here() == ";" || Here() == "{")) {
                break;
            }
            depth += Here() == "(" ? 1 : 0;
            depth -= Here() == ")" ? 1 : 0;
            head.push_back(Here());
        }
        return head;
    }

    /// A template is named like what it makes.
    static Tokens WithoutTemplate(Tokens head) {
        if (head.empty() || head[0] != "template") {
            return head;
        }
        std::size_t i = 1;
        int depth = 0;
        do {
            depth += head[i] == "<" ? 1 : 0;
            depth -= head[i] == ">" ? 1 : 0;
            ++i;
        } while (depth > 0 && i < head.size());
        return {head.begin() + static_cast<std::ptrdiff_t>(i), head.end()};
    }

    /// Declarations up to the closing brace. The prefix ends in "::" inside of a class.
    void ReadScope(const std::string& prefix, bool isPublic) {
        while (!AtEnd() && Here() != "}") {
            if (IsAccess(Here()) && NextIs(":")) {
                isPublic = Here() == "public";
                m_at += 2;
            } else {
                ReadDeclaration(prefix, isPublic);
            }
        }
        ++m_at;
    }

    void ReadDeclaration(const std::string& prefix, bool isPublic) {
        const Tokens head = WithoutTemplate(ReadHead());
        const bool hasBody = !AtEnd() && Here() == "{";
        ++m_at;
        if (head.empty()) {
            return;
        }
        if (head[0] == "namespace") {
            ReadNamespace(head);
        } else if (head[0] == "class" || head[0] == "struct" || head[0] == "enum") {
            if (hasBody) {
                ReadType(head, prefix, isPublic && m_isOpen);
            }
        } else {
            Add(prefix, DeclaredName(head), isPublic && m_isOpen);
            if (hasBody) {
                SkipBody();
            }
        }
    }

    void ReadNamespace(const Tokens& head) {
        if (head.back() == "detail") {
            SkipBody();
        } else {
            ReadScope("", true);
        }
    }

    void ReadType(const Tokens& head, const std::string& prefix, bool isPublic) {
        std::string name;
        for (const std::string& token : head) {
            if (token == ":") {
                break;
            }
            name = token;
        }
        Add(prefix, name, isPublic);
        if (head[0] == "enum") {
            SkipBody();
            return;
        }
        const bool wasOpen = m_isOpen;
        m_isOpen = isPublic;
        ReadScope(prefix + name + "::", head[0] == "struct");
        m_isOpen = wasOpen;
    }

    /// The name of a function or an alias; empty for anything else.
    static std::string DeclaredName(const Tokens& head) {
        if (head[0] == "using") {
            const bool isAlias = head.size() > 2 && head[2] == "=";
            return isAlias ? head[1] : head.back();
        }
        if (head[0] == "static_assert" || head[0] == "friend") {
            return "";
        }
        for (std::size_t i = 1; i < head.size(); ++i) {
            if (head[i - 1] == "operator") {
                std::string name = "operator" + head[i];
                for (++i; i < head.size() && head[i] != "("; ++i) {
                    name += head[i];
                }
                return name;
            }
            if (head[i] == "=") {
                return "";
            }
            if (head[i] == "(") {
                const bool isDestructor = i > 1 && head[i - 2] == "~";
                return isDestructor ? "" : head[i - 1];
            }
        }
        return "";
    }

    void Add(const std::string& prefix, const std::string& name, bool isPublic) {
        if (isPublic && !name.empty()) {
            m_names.insert(prefix + name);
        }
    }

    Tokens m_tokens;
    std::size_t m_at = 0;
    bool m_isOpen = true; // whether all classes around are public
    std::set<std::string> m_names;
};

} // namespace

std::set<std::string> PublicNames(const std::string& headerText) {
    return Reader(Split(WithoutCommentsAndDirectives(headerText))).Names();
}

} // namespace geom::test
