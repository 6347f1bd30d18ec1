" Vim syntax file
" Language: scrim screen files

if exists('b:current_syntax')
  finish
endif

let s:save_cpo = &cpo
set cpo&vim
syntax case match
syntax sync fromstart

" A line that no directive begins is an error; the last matching item wins. Keywords are spelled out,
" so that they can be compared with the program's own.
syntax match scrimError /^[^#].*$/
syntax match scrimComment /^#.*$/

syntax match scrimWindow /^\%(fulls\|pop:\@=\|name:\@=\|title:\@=\|table:\@=\|bdefault\)/ nextgroup=scrimItems
syntax match scrimButton /^\%(button:\@=\|dbutton:\@=\|pbutton:\@=\|dpbutton:\@=\)/ nextgroup=scrimItems
syntax match scrimField /^\%(etext\|detext\|poplist\)/ nextgroup=scrimItems
syntax match scrimField /^\%(checkbox\|dcheckbox\|xcheckbox\|dxcheckbox\)/ nextgroup=scrimItems
syntax match scrimList /^\%(swin\|dswin\|swhigh\|swpos\|swdefer\)/ nextgroup=scrimItems
syntax match scrimFrame /^\%(box:\@=\)/ nextgroup=scrimItems

syntax match scrimItems /.*$/ contained contains=scrimPlace,scrimColon,scrimValue,scrimEscape,scrimType,scrimHot,scrimAction,scrimWord
syntax match scrimColon /:/ contained
syntax match scrimPlace /:\@<=\%(-\?\d\+\)\%(,-\?\d\+\)*\%(\/\d\+\)\?\ze\%(:\|$\)/ contained
syntax match scrimType /:\@<=\%(CHAR\|VARCHAR2\|NUMBER\|DATE\)\ze\%(:\|$\)/ contained
syntax match scrimWord /:\@<=\%(clear\|overlay\|cursor\)\ze\%(:\|$\)/ contained
syntax match scrimAction /:\@<=[<>^][^:]*/ contained
syntax match scrimHot /_[^:]/ contained

syntax region scrimBlock matchgroup=scrimBlockEnds start=/^\%(text:\|atext\|btext\).*$/ end=/^endtext:.*$/ contains=scrimValue,scrimEscape
syntax match scrimValue /\${[^}]*}\?/ contained
syntax match scrimEscape /\\./ contained

highlight default link scrimError Error
highlight default link scrimComment Comment
highlight default link scrimWindow Statement
highlight default link scrimFrame Statement
highlight default link scrimBlockEnds Statement
highlight default link scrimButton Function
highlight default link scrimField Function
highlight default link scrimList Function
highlight default link scrimBlock String
highlight default link scrimPlace Number
highlight default link scrimColon Delimiter
highlight default link scrimType Type
highlight default link scrimWord Constant
highlight default link scrimAction Special
highlight default link scrimHot Special
highlight default link scrimValue Identifier
highlight default link scrimEscape SpecialChar

let b:current_syntax = 'scrim'
let &cpo = s:save_cpo
unlet s:save_cpo
