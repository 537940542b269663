" Vim syntax file for scripts of the development host.
if exists('b:current_syntax')
  finish
endif
let b:current_syntax = 'talq'

syntax case match

syntax keyword talqConditional if else
syntax keyword talqRepeat while for
syntax keyword talqStatement return break continue
syntax keyword talqException try catch
syntax keyword talqKeyword param function
syntax keyword talqInclude include
syntax keyword talqOperator new
syntax keyword talqBoolean true false
syntax keyword talqTodo TODO FIXME XXX contained

syntax match talqNumber /\<\d\+\>/
syntax match talqNumber /\<0[xX]\x\+\>/
syntax match talqFloat /\<\d\+\.\d\+\%([eE][+-]\=\d\+\)\=\>/
syntax match talqFloat /\<\d\+[eE][+-]\=\d\+\>/
syntax match talqFloat /\w\@<!\.\d\+\%([eE][+-]\=\d\+\)\=\>/

" A text ends on its line.
syntax region talqString start=/"/ skip=/\\./ end=/"/ oneline contains=talqEscape,talqBadEscape
syntax match talqBadEscape /\\./ contained
syntax match talqEscape /\\\%([ntr0\\"']\|x\x\x\)/ contained

syntax match talqComment "//.*$" contains=talqTodo,@Spell
syntax region talqComment start="/\*" end="\*/" contains=talqTodo,@Spell

" The module's classes, and the host's.
syntax keyword talqClass TOpenGL OglColor OglMaterial
syntax keyword talqClass ColorRef MBmp MDC Matrix Mesh POINT3 RECT String Vector

" Functions of the language, and the host's, where they are called.
let s:functions = 'Assert Beside ErrorName Fail Print Raise TypeOf '
      \ .. 'abs acos asin atan atan2 byte ceil cos double exp float floor int int64 log max min pi pow random round '
      \ .. 'sin sqrt tan '
      \ .. 'RotationMatrix ScaleMatrix TranslationMatrix '
      \ .. 'Find GdiHandles HeapUse Length MemoryUse ReadObj ReadText Seconds SeedRandom Sleep Split Substring Text '
      \ .. 'WriteText'
execute 'syntax match talqFunction /\<\%(' .. substitute(s:functions, ' ', '\\|', 'g') .. '\)\>\ze\s*(/'

syntax match talqDefinition /\%(\<function\s\+\)\@<=\h\w*/
syntax match talqMethod /\%(\%(->\|\.\)\s*\)\@<=\h\w*\ze\s*(/

highlight default link talqConditional Conditional
highlight default link talqRepeat Repeat
highlight default link talqStatement Statement
highlight default link talqException Exception
highlight default link talqKeyword Keyword
highlight default link talqInclude Include
highlight default link talqOperator Operator
highlight default link talqBoolean Boolean
highlight default link talqTodo Todo
highlight default link talqNumber Number
highlight default link talqFloat Float
highlight default link talqString String
highlight default link talqEscape SpecialChar
highlight default link talqBadEscape Error
highlight default link talqComment Comment
highlight default link talqClass Type
highlight default link talqFunction Function
highlight default link talqDefinition Function
highlight default link talqMethod Function
