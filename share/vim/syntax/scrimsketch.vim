" Vim syntax file
" Language: drawings of forms for scrim-sketch

if exists('b:current_syntax')
  finish
endif

let s:save_cpo = &cpo
set cpo&vim
syntax case match
syntax sync fromstart

" What stands behind a "=" of the legend are lines of screen files, without their beginning.
syntax include @sketchScreenFile syntax/scrim.vim

syntax match sketchComment /^#.*$/

" The picture: from an edge, which may have a title, to a plain one. The last matching item wins.
syntax region sketchPicture matchgroup=sketchFrame start=/^\s*+.*+\s*$/ end=/^\s*+-*+\s*$/ contains=sketchSide,sketchInner,sketchField,sketchBox,sketchButton,sketchPlace,sketchValue,sketchTab
syntax match sketchSide /|/ contained
syntax match sketchInner /+-[^+|]*-+\|+-+/ contained contains=sketchFile
syntax match sketchFile /[^+ -][^+|]*[^+ -]/ contained contains=sketchValue
syntax match sketchField /\[[^][]*\]/ contained
syntax match sketchBox /\[[ Xx]\]\|([ Xx])/ contained
syntax match sketchButton /([^()]*_[^() ][^()]*)\|<[^<>]*_[^<> ][^<>]*>/ contained contains=sketchHot
syntax match sketchHot /_[^()<> ]/ contained
syntax match sketchPlace /\$\@<!{\%(ab\|a\|b\)\s*}/ contained
syntax match sketchValue /\${[^}]*}\?/ contained
syntax match sketchTab /\t/ contained

" The legend. A line without a key and its sign is an error.
syntax match sketchError /^\s*[^|+# \t].*$/
syntax match sketchKey /^\s*\%("[^"]*"\|[^:="]\+\)\%(#\d\+\)\?\s*\ze[:=]/ nextgroup=sketchSaid,sketchLine
syntax match sketchScreen /^\s*\%(screen\|order\|active\|default\|{a}\|{b}\)\s*\ze:/ nextgroup=sketchSaid
syntax match sketchSaid /:.*$/ contained contains=sketchProperty,sketchType,sketchText,sketchValue,sketchOfScreen
syntax match sketchText /"[^"]*"/ contained contains=sketchValue
syntax match sketchProperty /[:,]\s*\zs\%(variable\|value\|required\|password\|most\|list\|shows\|action\|check\|no check\|button\|file\|highlight\|start\|defer\)\>/ contained
syntax match sketchOfScreen /[:,]\s*\zs\%(name\|title\|clear\|keep\|overlay\|pop\|none\)\>/ contained
syntax match sketchType /[:,]\s*\zs\c\%(CHAR\|VARCHAR2\|NUMBER\|DATE\)\>/ contained
syntax match sketchLine /=\s\?[a-z]*/ contained contains=sketchKeyword nextgroup=scrimItems
syntax match sketchLine /^\s*=\s\?[a-z]*/ contains=sketchKeyword nextgroup=scrimItems
syntax match sketchKeyword /[a-z]\+/ contained
syntax region sketchBlock matchgroup=sketchKeyword start=/^\s*=\s\?\%(text:\|atext\|btext\).*$/ end=/^endtext:.*$/ contains=scrimValue,scrimEscape

highlight default link sketchComment Comment
highlight default link sketchFrame Statement
highlight default link sketchSide Statement
highlight default link sketchInner Statement
highlight default link sketchFile String
highlight default link sketchField Function
highlight default link sketchBox Function
highlight default link sketchButton Function
highlight default link sketchHot Underlined
highlight default link sketchPlace Type
highlight default link sketchValue Identifier
highlight default link sketchTab Error
highlight default link sketchError Error
highlight default link sketchKey Identifier
highlight default link sketchScreen Statement
highlight default link sketchProperty Constant
highlight default link sketchOfScreen Constant
highlight default link sketchType Type
highlight default link sketchText String
highlight default link sketchKeyword Function
highlight default link sketchBlock String

let b:current_syntax = 'scrimsketch'
let &cpo = s:save_cpo
unlet s:save_cpo
