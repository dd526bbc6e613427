" Vim compiler file
" Compiler: vemo-boardspec-lint, for the file of a board package in the current buffer
" Copy this file to ~/.vim/compiler, then run ":compiler vemo-boardspec" and ":make".

if exists('current_compiler')
  finish
endif
let current_compiler = 'vemo-boardspec'

CompilerSet makeprg=vemo-boardspec-lint\ %:S

" Column, or line and column, may be missing. Notes belong to the finding above them.
CompilerSet errorformat=%f:%l:%c:\ %trror:\ %m,
      \%f:%l:%c:\ %tarning:\ %m,
      \%f:%l:%c:\ %tote:\ %m,
      \%f:%l:\ %trror:\ %m,
      \%f:%l:\ %tarning:\ %m,
      \%f:%l:\ %tote:\ %m,
      \%f:\ %trror:\ %m,
      \%f:\ %tarning:\ %m,
      \%-G%.%#
