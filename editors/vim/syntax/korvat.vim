" Vim syntax for KORVAT.INP, the deck of KORVAT, of both revisions. docs/deck.md describes the deck.
if exists('b:current_syntax')
  finish
endif

syntax case match
syntax sync fromstart

" Of two that match at the same place, Vim takes the later one. Numbers are separated by blanks only; what begins like one and is
" none would be refused.
syntax match korvatNotANumber /\%(^\|\s\)\@1<=[-+]\=\.\=\d\S*/ contained contains=korvatBeyond
syntax match korvatNumber /\%(^\|\s\)\@1<=[-+]\=\%(\d\+\.\=\d*\|\.\d\+\)\%([eEdD][-+]\=\d\+\)\=\%(\s\|$\)\@=/ contained contains=korvatBeyond
" Text behind the numbers of a line is a remark.
syntax match korvatRemark /\%(^\|\s\)\@1<=\%([-+]\=\.\=\d\)\@!\S.*/ contained contains=korvatTab,korvatBeyond
syntax match korvatTab /\t/ contained
" Bytes, as the program counts.
syntax match korvatBeyond /\%>80c.\+/ contained

syntax match korvatRecord /^\s*[-+]\=\.\=\d.*$/ contains=korvatNotANumber,korvatNumber,korvatRemark,korvatTab,korvatBeyond
syntax match korvatHeading /^\s*\%([-+]\=\.\=\d\)\@![^*Cc \t].*$/ contains=korvatTab,korvatBeyond
syntax match korvatHeading /^\s\+\%([-+]\=\.\=\d\)\@!\S.*$/ contains=korvatTab,korvatBeyond
syntax match korvatBlankWithTab /^\s*\t\s*$/ contains=korvatTab
syntax match korvatComment /^[*Cc].*$/

" Revision 5: behind the third blank line come the cross sections, whose lines are read up to column 120 and in which a comma may
" follow a value and a tab separates. Each region begins at the line behind a blank one, inside the region before, and goes on to the end of the
" file. (The engine 1 is named because the other one finds a line break behind every line.)
syntax match korvatWideNotANumber /\%(^\|\s\|,\)\@1<=[-+]\=\.\=\d[^ \t,]*/ contained contains=korvatWideBeyond
syntax match korvatWideNumber /\%(^\|\s\|,\)\@1<=[-+]\=\%(\d\+\.\=\d*\|\.\d\+\)\%([eEdD][-+]\=\d\+\)\=\%(\s\|,\|$\)\@=/ contained contains=korvatWideBeyond
syntax match korvatWideBeyond /\%>120c.\+/ contained
syntax match korvatWideRemark /\%(^\|[ \t,]\)\@1<=\%([-+]\=\.\=\d\)\@![^ \t,].*/ contained contains=korvatWideBeyond
syntax match korvatWideRecord /^\s*[-+]\=\.\=\d.*$/ contained contains=korvatWideNotANumber,korvatWideNumber,korvatWideRemark,korvatWideBeyond
syntax match korvatWideHeading /^\s*\%([-+]\=\.\=\d\)\@![^*Cc \t].*$/ contained contains=korvatWideBeyond
syntax match korvatWideHeading /^\s\+\%([-+]\=\.\=\d\)\@!\S.*$/ contained contains=korvatWideBeyond
syntax cluster korvatLines contains=korvatBeyond,korvatRecord,korvatHeading,korvatBlankWithTab,korvatComment,korvatRest
syntax cluster korvatWideLines contains=korvatBeyond,korvatWideRecord,korvatWideHeading,korvatComment,korvatRest
syntax region korvatRevision5 matchgroup=korvatVersion start=/^KORVAT [Vv]ersion..2009.*$/ end=/\%$/ contains=korvatControl,korvatComment,korvatRest
syntax region korvatControl matchgroup=korvatHeading start=/\%#=1\%(^ *\n\)\@<=[^*Cc].\{,79}/ matchgroup=korvatComment start=/\%#=1\%(^ *\n\)\@<=[*Cc].*/ end=/\%$/ contained contains=@korvatLines,korvatMaterials
syntax region korvatMaterials matchgroup=korvatHeading start=/\%#=1\%(^ *\n\)\@<=[^*Cc].\{,79}/ matchgroup=korvatComment start=/\%#=1\%(^ *\n\)\@<=[*Cc].*/ end=/\%$/ contained contains=@korvatLines,korvatSections
syntax region korvatSections matchgroup=korvatHeading start=/\%#=1\%(^ *\n\)\@<=[^*Cc].\{,79}/ matchgroup=korvatComment start=/\%#=1\%(^ *\n\)\@<=[*Cc].*/ end=/\%$/ contained contains=@korvatWideLines,korvatSegments
syntax region korvatSegments matchgroup=korvatHeading start=/\%#=1\%(^ *\n\)\@<=[^*Cc].\{,79}/ matchgroup=korvatComment start=/\%#=1\%(^ *\n\)\@<=[*Cc].*/ end=/\%$/ contained contains=@korvatLines

syntax match korvatVersion /^KORVAT [Vv]ersion\%(..2009\)\@!.*$/
" The first line is the label, whatever it begins with, except END; nothing below END is read.
syntax match korvatLabel /\%1l\%(END\)\@!.*/ contains=korvatTab,korvatBeyond
syntax region korvatRest matchgroup=korvatEnd start=/^END.*$/ end=/\%$/

highlight default link korvatLabel Title
highlight default link korvatVersion PreProc
highlight default link korvatHeading Statement
highlight default link korvatWideHeading Statement
highlight default link korvatNumber Number
highlight default link korvatWideNumber Number
highlight default link korvatRemark String
highlight default link korvatWideRemark String
highlight default link korvatNotANumber Error
highlight default link korvatWideNotANumber Error
highlight default link korvatBeyond Error
highlight default link korvatWideBeyond Error
highlight default link korvatTab Error
highlight default link korvatComment Comment
highlight default link korvatEnd Keyword
highlight default link korvatRest Comment

let b:current_syntax = 'korvat'
