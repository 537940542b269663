autocmd BufRead,BufNewFile *.talq setfiletype talq
