// Joins a generated grammar to the scanner: keywords, lexemes as the grammar's symbols, its errors in French.
// For the grammars' own files only; every grammar declares the tokens WORD, TEXT, PATH, INTEGER, REAL, ADD.
#pragma once

#include <cstring>
#include <string>
#include <type_traits>

#include "kalve/parsers/ParseState.h"

/// The place of a rule is that of its first symbol.
#define YYLLOC_DEFAULT(Current, Rhs, N) (Current) = YYRHSLOC(Rhs, (N) != 0 ? 1 : 0)

/// A word that a grammar reserves.
template <class Grammar>
struct Keyword {
  const char* word;
  typename Grammar::token_kind_type token;
  bool isFollowedByPath = false;
};

/// Stands for the keywords of a grammar that has none.
struct NoKeywords {};

template <class Grammar, class Keywords>
typename Grammar::symbol_type WordSymbol(ParseState& state, const Lexeme& lexeme, const Keywords& keywords) {
  if constexpr (!std::is_same_v<Keywords, NoKeywords>) {
    for (const auto& keyword : keywords) {
      if (lexeme.text != keyword.word) continue;
      if (keyword.isFollowedByPath) state.GetScanner().ExpectPath();
      return typename Grammar::symbol_type(keyword.token, lexeme.where);
    }
  }
  return Grammar::make_WORD(lexeme.text, lexeme.where);
}

/// The next lexeme as a symbol of the grammar.
template <class Grammar, class Keywords>
typename Grammar::symbol_type NextSymbol(ParseState& state, const Keywords& keywords) {
  const Lexeme& lexeme = state.Next();
  switch (lexeme.kind) {
    case Lexeme::Kind::word:
      return WordSymbol<Grammar>(state, lexeme, keywords);
    case Lexeme::Kind::text:
      return Grammar::make_TEXT(lexeme.text, lexeme.where);
    case Lexeme::Kind::path:
      return Grammar::make_PATH(lexeme.text, lexeme.where);
    case Lexeme::Kind::integer:
      return Grammar::make_INTEGER(lexeme.integer, lexeme.where);
    case Lexeme::Kind::real:
      return Grammar::make_REAL(lexeme.real, lexeme.where);
    case Lexeme::Kind::sign:
      if (lexeme.text.size() > 1) return Grammar::make_ADD(lexeme.where);
      return typename Grammar::symbol_type(lexeme.text[0], lexeme.where);
    case Lexeme::Kind::end:
      return Grammar::make_YYEOF(lexeme.where);
    case Lexeme::Kind::unreadable:
    case Lexeme::Kind::fault:
      break;
  }
  return Grammar::make_YYUNDEF(lexeme.where);
}

/// Ends the run with what was read and what the grammar could have taken.
template <class Grammar>
[[noreturn]] void ReportSyntax(ParseState& state, const typename Grammar::context& context) {
  constexpr int most = Grammar::symbol_kind::YYNTOKENS;
  typename Grammar::symbol_kind_type kinds[most];
  const int count = context.expected_tokens(kinds, most);
  std::string expected;
  for (int i = 0; i < count; ++i) {
    if (i > 0) expected += i + 1 < count ? ", " : " ou ";
    expected += Grammar::symbol_name(kinds[i]);
  }
  const Lexeme& read = state.GetScanner().Last();
  SyntaxFault(read.where, read.Shown(), expected);
}

/// The two members that a generated parser leaves to be defined.
#define KALVE_GRAMMAR_ERRORS(Grammar)                                                                    \
  void yy::Grammar::report_syntax_error(const context& c) const { ReportSyntax<yy::Grammar>(state, c); } \
  void yy::Grammar::error(const Position& where, const std::string& what) { FaultInFile(where, what); }
