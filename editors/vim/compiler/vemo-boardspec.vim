" Vim compiler file
" Compiler: vemo-boardspec, for the board file in the current buffer
" Copy this file to ~/.vim/compiler, then run ":compiler vemo-boardspec" and ":make".

if exists('current_compiler')
  finish
endif
let current_compiler = 'vemo-boardspec'

CompilerSet makeprg=vemo-boardspec\ %:S\ name

" An error with a location has two lines, the location and the message, and ends at the line "Failed
" to load". Without a preceding error, that line is the message.
CompilerSet errorformat=%EError\ in\ '%f'\\,\ line\ %l,
      \%EError\ in\ '%f':,
      \%EXML\ error:\ %m\\,\ Error=%.%#\ Line\ number=%l%.%#,
      \%ZError:\ Failed\ to\ load\ xml\ file:\ %f,
      \%EError:\ Failed\ to\ load\ xml\ file:\ %f,
      \%+ZMake\ sure\ %.%#,
      \%GError:\ %m,
      \%-GERROR\ FOUND:%.%#,
      \%f:%l:\ %m,
      \%C%m
