%option reentrant noyywrap nodefault batch 8bit nounput noinput
%option prefix="kalve_lex_"
%{
// Lexemes of the input files. The input is ISO-8859-1, all of it in memory, so that a lexeme has any length;
// none but a run of line ends crosses the end of a line.
#include <charconv>
#include <cstdlib>
#include <string>

#include "kalve/parsers/Lexeme.h"

#define YY_DECL static Lexeme ReadLexeme(int& line, bool asPath, yyscan_t yyscanner)
#define yyterminate() return Lexeme{Kind::end}

namespace {

using Kind = Lexeme::Kind;

/// The content of a quoted text; an escape other than \" \\ \t \n is a fault.
Lexeme TextLexeme(Kind kind, const char* quoted, int length) {
  Lexeme lexeme{kind};
  for (int i = 1; i + 1 < length; ++i) {
    char byte = quoted[i];
    if (byte == '\\') {
      byte = quoted[++i];
      if (byte == 't') byte = '\t';
      else if (byte == 'n') byte = '\n';
      else if (byte != '"' && byte != '\\')
        return Lexeme{.kind = Kind::fault, .text = {'\\', byte}, .expected = "\\\", \\\\, \\t ou \\n dans un texte"};
    }
    lexeme.text += byte;
  }
  return lexeme;
}

const char* WithoutPlus(const char* number) { return *number == '+' ? number + 1 : number; }

template <class Number>
bool Converts(const char* begin, const char* end, Number& number) {
  const auto result = std::from_chars(WithoutPlus(begin), end, number);
  return result.ec == std::errc() && result.ptr == end;
}

Lexeme IntegerLexeme(const char* text, int length) {
  Lexeme lexeme{.kind = Kind::integer, .text = std::string(text, length)};
  if (Converts(text, text + length, lexeme.integer)) return lexeme;
  lexeme.kind = Kind::fault;
  lexeme.expected = "un entier entre -2147483648 et 2147483647";
  return lexeme;
}

Lexeme RealLexeme(const char* text, int length) {
  Lexeme lexeme{.kind = Kind::real, .text = std::string(text, length)};
  if (Converts(text, text + length, lexeme.real)) return lexeme;
  lexeme.kind = Kind::fault;
  lexeme.expected = "un réel représentable";
  return lexeme;
}

}  // namespace
%}

%x PATH

blank   [ \t\r\f\v]
letter  [A-Za-z_\xC0-\xD6\xD8-\xF6\xF8-\xFF]
digit   [0-9]
quoted  \"([^"\\\n\x1A]|\\[^\n\x1A])*

%%

%{
  BEGIN(asPath ? PATH : INITIAL);
%}

<*>\n+         line += yyleng;
<*>{blank}+    ;
<*>#[^\n]*     ;

<*>{quoted}\"  return TextLexeme(YY_START == PATH ? Kind::path : Kind::text, yytext, yyleng);
<*>{quoted}\\? return Lexeme{.kind = Kind::fault, .text = std::string(yytext, yyleng), .expected = "un guillemet fermant sur la même ligne"};
<*>";"         return Lexeme{Kind::sign, yytext};
<*>\x1A        return Lexeme{.kind = Kind::fault, .text = yytext, .expected = "des caractères de ISO-8859-1"};

<PATH>[^ \t\r\f\v\n;#"\x1A][^ \t\r\f\v\n;#\x1A]*  return Lexeme{Kind::path, std::string(yytext, yyleng)};

{letter}({letter}|{digit})*                       return Lexeme{Kind::word, std::string(yytext, yyleng)};
[+-]?{digit}+                                     return IntegerLexeme(yytext, yyleng);
[+-]?({digit}+"."{digit}*|"."{digit}+)([eE][+-]?{digit}+)?  return RealLexeme(yytext, yyleng);
[+-]?{digit}+[eE][+-]?{digit}+                    return RealLexeme(yytext, yyleng);
[+-]?"."?{digit}({letter}|{digit}|".")*           return Lexeme{.kind = Kind::fault, .text = std::string(yytext, yyleng), .expected = "un nombre ou un nom"};
"+="                                              return Lexeme{Kind::sign, yytext};
[{}\[\](),=:]                                     return Lexeme{Kind::sign, yytext};
.                                                 return Lexeme{Kind::unreadable, yytext};

%%

LexemeReader::LexemeReader(const std::string& bytes) {
  kalve_lex_lex_init(&mFlex);
  kalve_lex__scan_bytes(bytes.data(), static_cast<int>(bytes.size()), mFlex);
}

LexemeReader::~LexemeReader() { kalve_lex_lex_destroy(mFlex); }

Lexeme LexemeReader::Read(bool asPath) {
  Lexeme lexeme = ReadLexeme(mLine, asPath, mFlex);
  lexeme.where.line = mLine;
  return lexeme;
}
